# Sourced by check-scale: DuckDB where it can be had, and how fast the exports are.

# try_duckdb: the page's query, by duckdb or by what npm offers of it. It is not Debian's.
try_duckdb() {
  if ! command -v duckdb >/dev/null; then
    command -v npm >/dev/null && (cd "$work" && timeout 120 npm install --no-audit --no-fund \
      --ignore-scripts @duckdb/node-api) >/dev/null 2>&1 || {
      shown 'duckdb -c' >/dev/null
      echo "No DuckDB here, and npm has none: its query is not tried"
      return
    }
    cat >"$work/bin/duckdb" <<SCRIPT
#!/usr/bin/env node
const {DuckDBInstance} = require('$work/node_modules/@duckdb/node-api');
(async () => {
  const connection = await (await DuckDBInstance.create()).connect();
  const result = await connection.runAndReadAll(process.argv[3]);
  for (const row of result.getRows()) console.log(row.map(String).join(','));
})();
SCRIPT
    chmod +x "$work/bin/duckdb"
  fi
  page_runs 'duckdb -c'
}

# timed WHAT COMMAND...: runs a command on all jobs of list.txt with sets in `sets`, and prints
# rates by the clock and by processor seconds.
timed() {
  local what=$1 TIMEFORMAT='%R %U %S' times
  shift
  rm -rf sets log
  mkdir sets
  sync
  times=$({ time "$@" >/dev/null 2>&1; } 2>&1)
  du -sb sets | awk -v what="$what" -v times="$times" -v rows="$rows" \
    -v jobs="$(wc -l <list.txt)" '{split(times, t); cpu = t[2] + t[3]
      printf "%-40s %6.1f %6.1f %7.1f %9.0f %9.0f %7.1f %7.1f\n", what, t[1], cpu, jobs / t[1],
        rows * jobs / t[1], rows * jobs / cpu, $1 / 1e6 / t[1], 1000 * cpu / jobs}'
}

one_by_one() {
  while read -r job; do
    kestrin-export --quiet --threads 1 --base "sets/${job%.*}" "$job"
  done <list.txt
}
at_once() {
  xargs -P "$(nproc)" -I{} kestrin-export --quiet --threads 1 "$@" --base sets/{} {} <list.txt
}
by_parallel() {
  parallel --joblog log kestrin-export --quiet --threads 1 --base sets/{.} {} :::: list.txt
}
by_tens() { xargs -P "$(nproc)" -n 10 kestrin-export --quiet --threads 1 --out sets <list.txt; }
by_jobs() { kestrin-export --quiet --jobs "$(nproc)" --out sets sized; }
by_one() { kestrin-export --quiet --threads 1 --out sets sized; }
summing() { kestrin-export --summary --threads 1 sized; }

# measure_in FOLDER: the ways side by side, for small jobs and for long ones.
measure_in() {
  local size profiles=(planter sprayer)
  mkdir "$1"
  cd "$1" || return
  for size in "2000 120" "20000 12"; do
    read -r rows count <<<"$size"
    rm -rf sized
    mkdir sized
    for seed in $(seq "$count"); do
      echo "--rows $rows --seed $seed --profile ${profiles[seed % 2]} sized/$seed.sqlite"
    done | xargs -L 1 kestrin-sample
    ls sized/*.sqlite >list.txt
    echo "$count jobs of $rows epochs, $(du -sb sized | cut -f1) bytes"
    timed "a process a job, wire and poly only" at_once --kind wire --kind poly
    timed "a process a job, one at a time" one_by_one
    timed "a process a job, $(nproc) at once" at_once
    timed "the same by GNU parallel" by_parallel
    timed "a process for 10 jobs, $(nproc) at once" by_tens
    timed "one process, --jobs $(nproc)" by_jobs
    timed "one process, --summary" summing
    timed "one process, --threads 1" by_one
    echo "sets: $(du -sb sets | cut -f1) bytes, $(find sets -type f | wc -l) files"
  done
}

measure() {
  uptime
  printf '%-40s %6s %6s %7s %9s %9s %7s %7s\n' "" "s" "cpu s" "jobs/s" "rows/s" "rows/cpu" "MB/s" "cpu ms/job"
  echo "On disk:"
  (measure_in "$work/measured")
  [ ! -w /dev/shm ] || {
    echo "In memory, where nothing waits for a medium:"
    (memory=$(mktemp -d -p /dev/shm) && trap 'rm -rf "$memory"' EXIT && measure_in "$memory/measured")
  }
}
