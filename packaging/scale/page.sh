# Sourced by check-scale: what it runs is read from docs/scale.md, so that the page and its trial
# cannot come apart. Wants $page, and $work for what has been run.

# split_page: each indented block of the page into a file $work/page/NUMBER.
split_page() {
  mkdir "$work/page"
  awk -v folder="$work/page" '/^    / {if (!within) ++n; within = 1; print substr($0, 5) > (folder "/" n)}
    !/^    / {within = 0}' "$page"
}

# shown TEXT: prints the block that holds the text; fails unless it is exactly one.
shown() {
  local block
  block=$(grep -lF -- "$1" "$work"/page/*) || true
  [ -f "$block" ] || fail "Not once on the page: $1"
  basename "$block" >>"$work/run"
  cat "$block"
}

# all_run: fails when the page shows what has not been run.
all_run() {
  local block
  for block in "$work"/page/*; do
    grep -qxF "$(basename "$block")" "$work/run" || fail "Shown but not tried: $(cat "$block")"
  done
}
