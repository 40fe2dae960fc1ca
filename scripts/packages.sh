# The Debian packages that building, running and testing need, and how to get the missing ones. To be sourced.

zelta_build_packages=(
  g++ cmake ninja-build ccache
  qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools libgl-dev
  pkgconf libxcb-keysyms1-dev libxcb-xkb-dev libxkbcommon-dev libxkbcommon-x11-dev
  libpulse-dev libsndfile1-dev libsoxr-dev libkissfft-dev libtag1-dev qt6-websockets-dev libjack-jackd2-dev
  qtkeychain-qt6-dev python3 python3-markdown-it
)
zelta_run_packages=(
  libqt6svg6 qt6-translations-l10n qt6-wayland fonts-dejavu-core
)
zelta_test_packages=(
  libgtest-dev libgmock-dev git mold
  python3 libplist-utils libxml2-utils
  liblo-tools nodejs npm
  ffmpeg mkvtoolnix cuetools python3-webvtt
  espeak-ng lame opus-tools vorbis-tools flac sox sndfile-programs mediainfo python3-mutagen
  avahi-daemon iproute2
  pulseaudio pulseaudio-utils jackd2 python3-jack-client python3-numpy
  xvfb openbox weston sway wtype xdotool xclip x11-utils x11-xkb-utils imagemagick dbus dunst
  python3-dbus python3-gi gnome-keyring libsecret-1-0
  desktop-file-utils appstream lintian man-db groff
  at-spi2-core python3-pyatspi gir1.2-atspi-2.0
)
# By version: what another one would lay out or complain of is different.
zelta_tidy_packages=(
  clang-format-19 clang-tidy-19 clang-19 libclang-rt-19-dev
)
zelta_bench_packages=(
  libbenchmark-dev liblo-dev faketime python3-numpy
)

# Prints the installed packages and what they provide, one a line: some builds of nodejs bring npm with them.
zelta_installed_packages() {
  dpkg-query -W -f='${db:Status-Status} ${Package}, ${Provides}\n' | sed -n 's/^installed //p' |
    sed 's/([^)]*)//g' | tr -d ' ' | tr ',' '\n'
}

# Prints those of the named packages that are not installed.
zelta_missing_packages() {
  local package installed
  installed="$(zelta_installed_packages)"
  for package in "$@"; do
    grep -qxF -- "$package" <<<"$installed" || printf '%s\n' "$package"
  done
}

# Says before anything happens what will be installed and built, and about how long it takes. The build needs so many
# minutes of one processor, 0 where there is none; ten packages and what they need take a minute or so. The names of the
# packages follow when they are installed.
zelta_announce() {
  local build_minutes="$1" missing minutes deeds=()
  shift
  mapfile -t missing < <(zelta_missing_packages "$@")
  [ "${#missing[@]}" -eq 0 ] || deeds+=("${#missing[@]} packages are installed, with what they need")
  [ "$build_minutes" -eq 0 ] || deeds+=("Zelta is built")
  [ "${#deeds[@]}" -gt 0 ] || return 0
  minutes=$(((${#missing[@]} + 9) / 10 + (build_minutes + $(nproc) - 1) / $(nproc)))
  echo "zelta: First ${deeds[0]}${deeds[1]:+, then ${deeds[1]}}. This takes about ${minutes} min, once."
}

# Installs what is missing of the named packages, or says in one line what to install and ends the script.
zelta_require_packages() {
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "zelta: this script installs what it needs with apt-get, which is not here. Install by hand: $*" >&2
    exit 1
  fi
  local missing
  mapfile -t missing < <(zelta_missing_packages "$@")
  [ "${#missing[@]}" -eq 0 ] && return
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "zelta: packages are missing and there is no sudo. As root: apt-get install ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "zelta: installing ${missing[*]}" >&2
  if ! { "${as_root[@]}" apt-get update -qq &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null; }; then
    echo "zelta: apt-get could not install: ${missing[*]}" >&2
    exit 1
  fi
}
