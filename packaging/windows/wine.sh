# Sourced by check-wine: a Wine of its own, and what is run in it.

out=build/windows
bin=$out/bin
work=$PWD/$out/wine-work
version=$(sed -n 's/^project(Kestrin VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
stage=$PWD/$out/Kestrin-$version-win64

export WINEPREFIX=$PWD/$out/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
export LC_ALL=C.UTF-8 TZ=UTC
unset DISPLAY WAYLAND_DISPLAY

end_wine() {
  WINEPREFIX=$WINEPREFIX wineserver -k 2>/dev/null || true
  [ -z "${xvfb-}" ] || kill ${window_manager:+"$window_manager"} "$xvfb" 2>/dev/null || true
  rm -f "$steps_log"
}
[ -z "${steps_log-}" ] || trap end_wine EXIT

# A path as Windows programs take it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# wine_run SECONDS PROGRAM ARGUMENT...: ends it when it takes too long, and starts in
# the folder that is Windows' own drive.
wine_run() {
  local seconds=$1 program
  program=$(realpath "$2")
  shift 2
  (cd "$WINEPREFIX/drive_c" && timeout --kill-after 5 "$seconds" wine "$program" "$@" </dev/null)
}

# The same on a console, which a terminal becomes; what the program starts and leaves
# behind ends with it.
wine_on_console() {
  local seconds=$1 said=$work/said code=0
  local command=(wine "$(realpath "$2")" "${@:3}")
  (cd "$WINEPREFIX/drive_c" && timeout --kill-after 5 "$seconds" \
    script --quiet --return --command "${command[*]@Q} >${said@Q} 2>&1" /dev/null) \
    >/dev/null </dev/null || code=$?
  cat "$said"
  return "$code"
}

linux_tools() {
  [ -e build/release/CMakeCache.txt ] || cmake --preset release -DKESTRIN_WERROR=ON
  cmake --build --preset release --target kestrin-export kestrin-sample
}

# Code and data lie elsewhere at each start, data is never run, and stacks are checked.
look_for_hardening() {
  local file
  for file in "$stage"/kestrin*.exe; do
    [ "$(x86_64-w64-mingw32-objdump -p "$file" |
      grep -cE 'HIGH_ENTROPY_VA|DYNAMIC_BASE|NX_COMPAT|DLL Name: libssp-0')" = 4 ]
  done
}

# The test programs find the libraries where they were built.
find_libraries() {
  local gcc
  prefix=$(packaging/windows/prefix)
  gcc=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
  WINEPATH="$(windows_path "$prefix/bin");$(windows_path "$gcc")"
  WINEPATH+=";$(windows_path /usr/x86_64-w64-mingw32/lib)"
  export WINEPATH
}

prepare_wine() {
  rm -rf "$work"
  mkdir -p "$work/stick"
  if [ ! -e "$WINEPREFIX/ready" ]; then
    rm -rf "$WINEPREFIX"
    timeout 180 wineboot --init
    # Without them captions fall back to a face with serifs.
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    # A stick and a card reader without a card, as drives.
    local drive
    for drive in e f; do
      timeout 60 wine reg add 'HKLM\Software\Wine\Drives' /v "$drive:" /d floppy /f
    done
    wineserver -k
    touch "$WINEPREFIX/ready"
  fi
  touch "$work/stick/stick.sqlite"
  ln -sfn "$work/stick" "$WINEPREFIX/dosdevices/e:"
  ln -sfn "$work/no-card" "$WINEPREFIX/dosdevices/f:"
  # A share of a server, which Wine looks for here.
  mkdir -p "$work/share" "$WINEPREFIX/dosdevices/unc/nas"
  ln -sfn "$work/share" "$WINEPREFIX/dosdevices/unc/nas/jobs"
}
# The offscreen platform has no fonts of its own. Wine hands Qt's settings on under
# these names.
export WINEQT_QPA_FONTDIR='Z:\usr\share\fonts\truetype\liberation'
export WINEQT_FORCE_STDERR_LOGGING=1
export KESTRIN_STICK=E KESTRIN_EMPTY_READER=F KESTRIN_SHARE='\\nas\jobs'

# compare NAME HERE THERE: what compare-NAME prints here and there, and which library it is
# linked with.
compare() {
  local name=$work/compare-$1 source=packaging/windows/compare-$1.c
  gcc -O2 -fno-builtin -ffp-contract=off "$source" -o "$name" "$2"
  x86_64-w64-mingw32-gcc-posix -O2 -fno-builtin -D__USE_MINGW_ANSI_STDIO=1 "$source" \
    -o "$name.exe" -I "$prefix/include" "$prefix/lib/$3"
  "$name" >"$name-here"
  wine_run 120 "$name.exe" | tr -d '\r' >"$name-there"
  [ -s "$name-here" ]
  diff "$name-here" "$name-there" | cut -c 1-100
}
# The maths functions, over millions of arguments.
compare_maths() { compare maths -lm libm-glibc.dll.a; }
# Areas that overlap, over thousands of them.
compare_unions() { compare unions -lgeos_c libgeos_c.dll.a; }

# Every sample job, exported here and there, as every kind.
compare_sets() {
  local linux=build/release/bin profile job here there profiles=0
  local every
  mkdir -p "$work/jobs" "$work/here" "$work/there"
  for profile in $("$linux/kestrin-sample" --list-profiles); do
    job=$work/jobs/$profile.sqlite
    "$linux/kestrin-sample" --rows 3000 --profile "$profile" "$job"
    # Without an implement no ground is covered.
    every=(--quiet --kind all)
    [ "$profile" = no-implement ] || every+=(--kind net)
    here=$work/here/$profile
    there=$work/there/$profile
    "$linux/kestrin-export" "${every[@]}" --base "$here" "$job"
    wine_run 120 "$stage/kestrin-export.exe" "${every[@]}" --base "$(windows_path "$there")" \
      "$(windows_path "$job")"
    profiles=$((profiles + 1))
  done
  # Nothing but the sets lies there; the same bytes under the same names.
  [ "$profiles" -ge 20 ]
  [ "$(find "$work/here" -name '*.shp' | wc -l)" = $((profiles * 5 - 1)) ]
  diff -rq "$work/here" "$work/there"
}

# The installer without questions: what it lays out runs, a program that runs is not
# touched, and what the user made or put there stays.
install_and_remove() {
  local folder setup=$PWD/$out/Kestrin-$version-setup.exe
  local entry='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestrin'
  folder=$WINEPREFIX/drive_c/users/$(id -un)/AppData/Local/Programs/Kestrin
  rm -rf "$folder"
  wine_run 120 "$setup" /S
  diff -r "$stage" "$folder" -x uninstall.exe

  (cd "$folder" && WINEPATH='' exec wine kestrin.exe) &
  local running=$!
  timeout 60 xdotool search --sync --onlyvisible --name '^Kestrin$'
  # What an installation would overwrite, and a removal delete.
  echo changed >"$folder/README.txt"
  local code=0
  wine_run 60 "$setup" /S || code=$?
  [ "$code" = 2 ]
  code=0
  # Told its folder, it stays where it is and says how it ended.
  wine_run 60 "$folder/uninstall.exe" /S "_?=$(windows_path "$folder")" || code=$?
  [ "$code" = 2 ]
  [ "$(cat "$folder/README.txt")" = changed ]
  diff -r "$stage" "$folder" -x uninstall.exe -x TrevaskData -x README.txt
  wine reg query "$entry"
  kill "$running"
  wait "$running" || true
  wine_run 120 "$setup" /S
  diff -r "$stage" "$folder" -x uninstall.exe -x TrevaskData

  local job
  job=$work/jobs/planter.sqlite
  WINEPATH='' wine_run 60 "$folder/kestrin-export.exe" --quiet --kind wire --out \
    "$(windows_path "$folder/TrevaskData")" "$(windows_path "$job")"
  find "$folder/TrevaskData" -name '*_WIRE.shp' | grep -q .
  wine reg query "$entry"
  touch "$folder/mine.exe" "$folder/platforms/mine.dll"
  # It goes on as a copy of itself and is waited for.
  wine_run 60 "$folder/uninstall.exe" /S
  local i
  for ((i = 0; i < 100; ++i)); do
    wine reg query "$entry" || break
    sleep 0.2
  done
  find "$folder/TrevaskData" -name '*_WIRE.shp' | grep -q .
  rm "$folder/mine.exe" "$folder/platforms/mine.dll"
  rmdir "$folder/platforms"
  [ "$(ls "$folder")" = TrevaskData ]
  ! wine reg query "$entry"
}

# on_display COMMAND...: with a screen and a window manager, without which each
# window's closing takes its time.
on_display() {
  if [ -z "${xvfb-}" ]; then
    local number=$work/display
    rm -f "$number"
    Xvfb -displayfd 8 -screen 0 1024x768x24 8>"$number" >"$work/xvfb" 2>&1 &
    xvfb=$!
    until [ -s "$number" ]; do
      kill -0 "$xvfb" 2>/dev/null || { cat "$work/xvfb"; echo "Failed: Xvfb does not start"; exit 1; } >&2
      sleep 0.1
    done
    DISPLAY=:$(cat "$number")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    window_manager=$!
    # A desktop that Wine began without a display stays without one.
    wineserver -k || true
  fi
  "$@"
}

# The job sheet on a real queue, through Windows' own way of printing.
print_sheet() {
  local code=0
  (program=$(realpath "$bin/app_test.exe") run=$(realpath tests/app/cups/run)
    cd "$WINEPREFIX/drive_c" && "$run" timeout --kill-after 5 120 wine "$program" -platform windows) ||
    code=$?
  # 77: there can be no queue here.
  [ "$code" = 0 ] || [ "$code" = 77 ]
}

take_pictures() {
  local pictures=$PWD/docs/screenshots
  cp "$work/session/"*.png "$pictures/"
}
