# shellcheck shell=bash
# What ./run, ./test, ./bench and ./format share. Sets `root`, the project's folder; changes to no other folder.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)

# Debian packages by what they are for.
# shellcheck disable=SC2034
{
  build_packages=(g++ cmake ninja-build ccache pkg-config libutf8proc-dev zlib1g-dev libdbus-1-dev
    qt6-base-dev fontconfig fonts-dejavu-core)
  wayland_packages=(qt6-wayland)
  linked_by_tests=(libgtest-dev libtag1-dev libsm-dev)
  tools_of_tests=(python3 python3-mutagen lame twolame ffmpeg vorbis-tools desktop-file-utils appstream
    xvfb xauth openbox xdotool wmctrl dbus-daemon python3-dbus python3-gi mpv mpv-mpris xorriso
    x11-utils at-spi2-core gir1.2-atspi-2.0 zsh fish mandoc)
  package_packages=(dpkg-dev file)
  windows_packages=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev dpkg-dev googletest zip)
  wine_packages=(wine wine64 fonts-wine)
  fuzz_packages=(clang libclang-rt-14-dev llvm-14)
  tidy_packages=(git clang clang-tidy)
  format_packages=(git clang-format)
}

say() { printf '%s\n' "$*" >&2; }

# die [-CODE] TEXT: ends the script with a sentence and an exit code, 1 unless told.
die() {
  local code=1
  if [[ $1 == -[0-9]* ]]; then
    code=${1#-}
    shift
  fi
  say "$(basename -- "$0"): $*"
  exit "$code"
}

# Prints the comment at the head of the running script.
usage() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"; }

# Runs a command and shows what it says only if it fails.
quietly() {
  local log code=0
  log=$(mktemp)
  "$@" >"$log" 2>&1 </dev/null || code=$?
  if ((code != 0)); then tail -n 60 -- "$log" >&2; fi
  rm -f -- "$log"
  return "$code"
}

missing_packages() {
  local installed package
  installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    grep -qxF "installed $package" <<<"$installed" || printf '%s\n' "$package"
  done
}

cannot_install() {
  local reason=$1
  shift
  die "packages are missing and can't be installed from here: $reason. As root, please run
  apt-get update && apt-get install --no-install-recommends $*"
}

# need PACKAGE...: installs what is missing of them, and asks nothing of the system when all is there.
need() {
  local missing as_root=()
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    say "This system has no apt-get, so nothing is installed. Needed is what these Debian packages hold: $*"
    return
  fi
  mapfile -t missing < <(missing_packages "$@")
  if ((${#missing[@]} == 0)); then return; fi

  if ((EUID != 0)); then
    command -v sudo >/dev/null || cannot_install "you aren't root and there is no sudo" "${missing[@]}"
    say "These packages are missing: ${missing[*]}. They are installed through sudo, which may ask for your password."
    sudo -v || cannot_install "sudo didn't let you" "${missing[@]}"
    as_root=(sudo)
  else
    say "Installing these packages: ${missing[*]}"
  fi
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
    apt-get -y -q -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0)
  quietly "${apt[@]}" update || say "The package lists couldn't be renewed; going on with the present ones."
  quietly "${apt[@]}" install --no-install-recommends "${missing[@]}" ||
    cannot_install "apt-get failed, see above" "${missing[@]}"
}

# Without a home to write to, the compiler cache stands in the build folder.
if [[ -z ${CCACHE_DIR-} && ! -w ${HOME:-/nowhere} ]]; then
  export CCACHE_DIR=$root/build/ccache
fi

# configure PRESET [CMAKE OPTION...]
configure() (
  cd -- "$root" || exit
  quietly cmake --preset "$@"
)

# build PRESET [TARGET...]: shows progress on a terminal, elsewhere only what the compiler has to say.
build() (
  command=(cmake --build --preset "$1")
  if (($# > 1)); then command+=(--target "${@:2}"); fi
  cd -- "$root" || exit
  if [[ -t 1 ]]; then
    "${command[@]}"
  else
    "${command[@]}" -- --quiet | { grep -vx 'ninja: no work to do.' || true; }
  fi
)
