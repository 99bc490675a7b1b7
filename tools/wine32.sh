#!/usr/bin/env bash
# A 32-bit Wine in a folder of its own: the system's packages stay as they are, and it needs not to be
# one with two architectures. Root alone can enter such a folder.
# Usage: tools/wine32.sh FOLDER                  makes it: 142 MB to fetch, 900 MB unpacked
#        tools/wine32.sh FOLDER run COMMAND ...  runs COMMAND with what Wine needs of the system bound
#                                                into FOLDER/root, for that command alone
#        tools/wine32.sh FOLDER wine|server ...  Wine, or its server, from there; only inside of "run"
set -euo pipefail
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
mkdir -p "$1"
folder=$(realpath "$1")
root=$folder/root
word=${2:-make}
shift $(($# > 1 ? 2 : 1))

refuse() {
  echo "$*" >&2
  exit 1
}

make_root() {
  local apt=$folder/apt package
  mkdir -p "$apt/state/lists/partial" "$apt/cache/archives/partial"
  : >"$apt/status"
  cat >"$apt/apt.conf" <<CONF
APT::Architecture "i386";
APT::Architectures { "i386"; };
APT::Install-Recommends "false";
APT::Sandbox::User "root";
Acquire::Languages "none";
Dir::State "$apt/state";
Dir::State::status "$apt/status";
Dir::Cache "$apt/cache";
CONF
  export APT_CONFIG=$apt/apt.conf
  # Some other archive that offers nothing for this architecture may fail; the next step will tell.
  apt-get -qq update || true
  apt-get -qq install -y --download-only wine32 wine ||
    refuse "The 32-bit packages of Wine cannot be had from this system's package archives."
  rm -rf "$root"
  mkdir -p "$root"/usr/{bin,sbin,lib} "$root"/{dev,proc,tmp}
  for each in bin sbin lib; do ln -s "usr/$each" "$root/$each"; done
  for package in "$apt"/cache/archives/*.deb; do
    dpkg-deb --fsys-tarfile "$package" | tar -x -C "$root" --keep-directory-symlink -f -
  done
  rm -rf "$apt"
}

case $word in
  make)
    [[ -f $folder/.ready ]] && exit 0
    command -v apt-get >/dev/null || refuse "A 32-bit Wine is made of Debian's packages; there is no apt-get."
    ((EUID == 0)) || refuse "Only root can make a 32-bit Wine in a folder and run it there."
    echo "Making a 32-bit Wine in $folder (five minutes) ..." >&2
    make_root
    "${BASH_SOURCE[0]}" "$folder" run "${BASH_SOURCE[0]}" "$folder" wine --version >/dev/null ||
      refuse "The 32-bit Wine in $folder does not start; this system may run no 32-bit programs."
    touch "$folder/.ready"
    ;;
  run)
    unshare --mount true 2>/dev/null ||
      refuse "A 32-bit Wine needs root and the right to mount; this system grants no mount namespace."
    exec unshare --mount "${BASH_SOURCE[0]}" "$folder" bound "$@"
    ;;
  bound)
    # The fonts with their settings, and the project where it is.
    for each in /dev /proc /tmp /etc/fonts /usr/share/fonts /usr/share/wine/fonts "$here"; do
      [[ -d $each ]] || continue
      mkdir -p "$root$each"
      mount --rbind "$each" "$root$each"
    done
    exec "$@"
    ;;
  wine | server)
    program=/usr/lib/wine/wine
    [[ $word == wine ]] || program=/usr/lib/wine/wineserver32
    export WINELOADER=/usr/lib/wine/wine WINESERVER=/usr/lib/wine/wineserver32
    exec unshare --root="$root" --wd="$PWD" $program "$@"
    ;;
  *) refuse "tools/wine32.sh knows no word \"$word\"." ;;
esac
