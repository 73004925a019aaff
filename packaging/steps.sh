# Sourced by run, check and their like: named steps that are quiet while all goes well and
# show what a command printed when it fails.

steps_log=$(mktemp)
trap 'rm -f "$steps_log"' EXIT

# step TITLE COMMAND...: runs the command; its output is shown only when it fails. Not to
# be part of a condition itself: a shell function then ends at its first failure.
step() {
  local title=$1 started=$SECONDS code
  shift
  printf '%s ... ' "$title"
  set +e
  (
    set -e
    "$@"
  ) >"$steps_log" 2>&1 </dev/null
  code=$?
  set -e
  if [ "$code" = 0 ]; then
    printf 'ok (%d s)\n' $((SECONDS - started))
  else
    printf 'FAILED\n'
    tail -n 200 "$steps_log" >&2
    printf '\nFailed: %s\n' "$title" >&2
    exit 1
  fi
}

# failed_tests FILE: what GoogleTest said, without the tests that passed; a test that was
# begun and did not end is told.
failed_tests() {
  awk '/^\[----/ {next} /^\[ RUN / {begun = $0; next} /^\[       OK / {begun = ""; next}
    begun {print begun; begun = ""} {print} END {if (begun) print begun}' "$1" | tail -n 300
}
