# Sourced by check-chroot: a fresh Debian 12 in a folder, and what is run in it.

out=build/debian
version=$(sed -n 's/^project(Kestrin VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
cache=${KESTRIN_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kestrin}
work=$PWD/$out/chroot
root=$work/root
home=$root/home/grower

# What each desktop has, and who looks at what was installed.
desktop=(man-db fonts-liberation libegl1 libgl1 libglx0 libopengl0 libx11-xcb1 libfontconfig1)

# Built a moment ago.
packages() { ls "$out"/*_amd64.deb; }

# Named after what went into it: a package that depends on something else needs another one.
chroot_key() {
  local package
  {
    for package in $(packages); do dpkg-deb --field "$package" Package Depends; done |
      sed 's/ ([^)]*)//g'
    declare -f make_chroot
    echo "${desktop[@]}"
  } | sha256sum | cut -c 1-16
}
chroot_place() { echo "$cache/debian-$(chroot_key)"; }
has_any_chroot() { compgen -G "$cache/debian-*/etc/debian_version" >/dev/null; }

# Where this machine gets its packages from.
debian_sources() {
  cat /etc/apt/sources.list.d/debian.sources /etc/apt/sources.list 2>/dev/null || true
}
debian_mirror() {
  debian_sources | sed -nE 's/^URIs: *([^ ]+).*/\1/p; s/^deb (\[[^]]*\] )?([^ ]+) .*/\2/p' | head -n 1
}

# in_root USER COMMAND...: in the folder $root as in a system of its own, whose programs end
# with the command.
in_root() {
  ${exec-} unshare --mount --pid --fork --kill-child ${offline:+--net} sh -c '
    root=$1 user=$2; shift 2
    mount -t proc proc "$root/proc" && cd / && exec chroot --userspec="$user" "$root" env -i \
      PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME="$(chroot "$root" sh -c "echo ~$user")" \
      LC_ALL=C.UTF-8 TZ=UTC ${DISPLAY:+DISPLAY="$DISPLAY"} "$@"' sh "$root" "$@"
}
apt_in_root() {
  in_root root env DEBIAN_FRONTEND=noninteractive apt-get --quiet --yes \
    -o APT::Install-Recommends=false -o APT::Sandbox::User=root -o Dpkg::Use-Pty=0 "$@"
}

make_chroot() {
  local place root
  place=$(chroot_place)
  root=$place.part
  rm -rf "$root"
  mkdir -p "$cache"
  debootstrap --variant=minbase bookworm "$root" "$(debian_mirror)"
  rm -f "$root/etc/apt/sources.list"
  local kind=list
  ! debian_sources | grep -q '^Types:' || kind=sources
  debian_sources >"$root/etc/apt/sources.list.d/debian.$kind"
  cp /etc/resolv.conf "$root/etc/"
  # Its discs are thrown away.
  echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/unsafe-io"
  apt_in_root update
  apt_in_root upgrade
  apt_in_root install "${desktop[@]}"
  # Pages are found without an index.
  rm -f "$root/var/lib/man-db/auto-update"
  # What the packages depend on lies ready, so that a later run needs no network.
  mkdir "$root/packages"
  cp $(packages) "$root/packages/"
  in_root root sh -c 'rm /var/cache/apt/archives/*.deb'
  apt_in_root install --download-only $(extras) $(cd "$root" && ls packages/* | sed 's#^#/#')
  rm -r "$root/packages"
  mv "$root" "$place"
}
# All that is needed was fetched when the fresh system was made.
apt_offline() { offline=1 apt_in_root "$@"; }
extras() { echo gdal-bin; }

# One to install in, with a user: laid over the kept one where the system can, or a copy.
take_chroot() {
  local place
  place=$(chroot_place)
  rm -rf "$work"
  mkdir -p "$root" "$work/changed" "$work/between"
  mount -t overlay kestrin "$root" \
    -o "lowerdir=$place,upperdir=$work/changed,workdir=$work/between" || cp -a "$place/." "$root"
  mkdir "$root/packages"
  cp $(packages) "$root/packages/"
  in_root root useradd --create-home --shell /bin/bash grower
}

# A job, and its sets as the program makes them that was built here.
make_sets() {
  mkdir -p "$work/here"
  "$out/objects/bin/kestrin-sample" --rows 3000 --profile planter "$work/job.sqlite"
  TZ=UTC LC_ALL=C.UTF-8 "$out/objects/bin/kestrin-export" --kind all --kind net --quiet \
    --base "$work/here/job" "$work/job.sqlite"
  [ "$(ls "$work/here" | wc -l)" = 15 ]
}

# same_sets PROGRAM: it makes the same in there.
same_sets() {
  rm -rf "$home/there"
  install -m 644 "$work/job.sqlite" "$home/job.sqlite"
  in_root grower sh -c 'mkdir ~/there'
  in_root grower "$1" --kind all --kind net --quiet --base /home/grower/there/job \
    /home/grower/job.sqlite
  diff -r "$work/here" "$home/there"
}

# window_opens PROGRAM: with a screen, and as the user; it is still there a second later.
window_opens() {
  local window
  ! xdotool search --name '^Kestrin$' || return 1
  exec=exec in_root grower "$1" >"$work/window" 2>&1 &
  window=$!
  timeout 60 xdotool search --sync --onlyvisible --name '^Kestrin$' || { cat "$work/window"; return 1; }
  sleep 1
  # The program is the one child of what started it.
  kill -KILL "$(pgrep --parent "$window")" || { cat "$work/window"; return 1; }
  wait "$window" || true
}
