# SPDX-License-Identifier: MPL-2.0
# A Debian of its own, for the scripts that source this file. It is made once and kept in a folder;
# delete that folder to start afresh. Needs root.
#
# All mounts are made in a namespace of the script's own, so that they and all processes are gone when
# it ends, however it ends.

fail() {
  echo "$(basename "$0" .sh): $1" >&2
  exit 1
}

# run_apart ARGUMENT...: runs the script, with its arguments, in namespaces of its own from here on.
run_apart() {
  [ "$(id -u)" -eq 0 ] || fail "needs root, to make a system of its own"
  [ -z "${HUEBRUSH_APART:-}" ] || return 0
  HUEBRUSH_APART=1 exec unshare --mount --propagation private --pid --fork --kill-child \
    "tools/$(basename "$0")" "$@"
}

# The mirror that this machine itself takes Debian from.
mirror() {
  apt-get indextargets --format '$(ORIGIN) $(LABEL) $(REPO_URI)' |
    sed -n 's/^Debian Debian //p' | head -n 1
}

# open_system FOLDER RELEASE ARCHITECTURE: makes the system in $FOLDER/system if it is not there, and
# keeps others from using the folder at the same time.
open_system() {
  folder=$1 system=$1/system
  mkdir -p "$folder"
  exec 9>"$folder/lock"
  flock -n 9 || fail "another run is using $folder"
  [ -d "$system" ] && return
  if ! command -v debootstrap >/dev/null || [ -z "$(mirror)" ]; then
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends debootstrap >/dev/null
  fi
  echo "making a Debian $2 for $3 in $system ..."
  rm -rf "$system.part"
  debootstrap --variant=minbase --arch="$3" "$2" "$system.part" "$(mirror)" \
    >"$folder/debootstrap.log" || { tail "$folder/debootstrap.log" >&2; exit 1; }
  mv "$system.part" "$system"
}

# mount_tree PLACE BUILD: puts the source tree there in the system, read-only, but for its folder
# build, which is BUILD.
mount_tree() {
  place=$1
  mkdir -p "$system$place" build
  mount --bind . "$system$place"
  mount -o remount,bind,ro "$system$place"
  mount --bind "$2" "$system$place/build"
  mount -t proc proc "$system/proc"
  mount -t tmpfs tmpfs "$system/tmp"
  mount --rbind /dev "$system/dev"
  cp -L /etc/resolv.conf "$system/etc/resolv.conf"
}

# inside COMMAND...: runs a command in the system, in the source tree.
inside() {
  local settings=(HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 TERM="${TERM:-dumb}")
  local name
  for name in http_proxy https_proxy no_proxy; do
    [ -z "${!name:-}" ] || settings+=("$name=${!name}")
  done
  chroot "$system" env -i "${settings[@]}" sh -c 'cd "$0" && exec "$@"' "$place" "$@"
}
