# shellcheck shell=bash
# The build for Windows: its libraries, made once from the distribution's own source packages and kept outside the tree,
# and Wine to try it with. Needs common.sh.

windows_cache=${QUBLET_WINDOWS_CACHE:-${XDG_CACHE_HOME:-${HOME-}/.cache}/qublet-windows}
# Without a home to write to they stand in the build folder.
if ! mkdir -p -- "$windows_cache" 2>/dev/null; then
  windows_cache=$root/build/windows-libraries
fi
export QUBLET_WINDOWS_LIBRARIES=$windows_cache/libraries

# Where the distribution of this machine keeps its sources, as lines of a list for apt.
source_archives() {
  local lines
  # shellcheck disable=SC2016
  lines=$(apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
    grep -E 'debian\.org|ubuntu\.com' | sort -u || true)
  if [[ -n $lines ]]; then
    printf '%s\n' "$lines"
  else
    (. /etc/os-release && printf 'deb-src http://deb.debian.org/debian %s main\n' "$VERSION_CODENAME")
  fi
}

# fetch_source PACKAGE: unpacks a source package, with the distribution's changes, into $windows_cache/PACKAGE. The
# system's own lists of packages stay as they are.
fetch_source() (
  own=$windows_cache/apt
  rm -rf -- "$own"
  mkdir -p -- "$own/lists/partial" "$own/cache/archives/partial"
  source_archives >"$own/own.list"
  apt=(apt-get -q -o Dir::Etc::sourcelist="$own/own.list" -o Dir::Etc::sourceparts=- -o Dir::State::lists="$own/lists"
    -o Dir::Cache="$own/cache" -o APT::Sandbox::User=)
  cd -- "$own" || exit
  quietly "${apt[@]}" update || die "no list of sources"
  quietly "${apt[@]}" source --download-only "$1" || die "the source of $1 can't be fetched"
  rm -rf -- "${windows_cache:?}/$1"
  # The signature has been checked by apt-get.
  quietly dpkg-source --no-check --no-copy -x "$1"_*.dsc "$windows_cache/$1" || die "the source of $1 can't be unpacked"
  rm -rf -- "$own"
)

# windows_library NAME FOLDER [CMAKE OPTION...]: builds and installs one unless that has been done in the same way.
# FOLDER is where its source lies; what isn't there is fetched.
windows_library() {
  local name=$1 source=$2 stamp=$windows_cache/$1.made made=$windows_cache/$1-build wanted
  shift 2
  wanted="$(cat -- "$root/cmake/windows.cmake") $*"
  if [[ -f $stamp && $(<"$stamp") == "$wanted" ]]; then return; fi
  say "== Windows: building $name"
  if [[ ! -d $source ]]; then fetch_source "$name"; fi
  rm -rf -- "$made"
  quietly cmake -G Ninja -S "$source" -B "$made" --toolchain "$root/cmake/windows.cmake" \
    -D CMAKE_INSTALL_PREFIX="$QUBLET_WINDOWS_LIBRARIES" -D CMAKE_INSTALL_LIBDIR=lib -D BUILD_SHARED_LIBS=OFF "$@" &&
    quietly cmake --build "$made" && quietly cmake --install "$made" || die "$name doesn't build"
  rm -rf -- "$made"
  printf '%s\n' "$wanted" >"$stamp"
}

# What all rooms of rules and their tests need.
windows_rules_libraries() {
  windows_library utf8proc "$windows_cache/utf8proc" -D CMAKE_BUILD_TYPE=Release
  windows_library googletest /usr/src/googletest -D CMAKE_BUILD_TYPE=Release -D BUILD_GMOCK=OFF
}

# What the window needs besides. Takes half an hour the first time.
windows_window_libraries() {
  # Without OpenGL this version asks for it in one place.
  local window=$windows_cache/qt6-base/src/plugins/platforms/windows/qwindowswindow.cpp
  if [[ ! -d $windows_cache/qt6-base ]]; then fetch_source qt6-base; fi
  sed -i '/isSoftwareGl()$/,/#else/s/^#if QT_CONFIG(dynamicgl)$/#if QT_CONFIG(opengl) \&\& QT_CONFIG(dynamicgl)/' "$window"
  windows_library qt6-base "$windows_cache/qt6-base" -D CMAKE_BUILD_TYPE=MinSizeRel -D QT_HOST_PATH=/usr \
    -D QT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
    -D QT_BUILD_EXAMPLES=OFF -D QT_BUILD_TESTS=OFF \
    -DFEATURE_{pkg_config,zstd,icu,tabletevent,sql,dbus,opengl,vulkan,printsupport,network,concurrent,xml}=OFF \
    -DFEATURE_{androiddeployqt,windeployqt}=OFF \
    -DFEATURE_system_{zlib,pcre2,freetype,harfbuzz,png,jpeg,doubleconversion}=OFF
}

# make_wine FOLDER [DRIVER]: a Wine of its own in FOLDER, which z: leads to the root folder of. DRIVER is what windows are
# shown by: "x11", or "null" for a machine without a display. Its fonts are looked for only where Windows has them, and
# smoothed as they are there.
make_wine() {
  export WINEPREFIX=$1 WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
  local keys='HKCU\Software\Wine\Drivers'
  mkdir -p -- "$WINEPREFIX"
  quietly wineboot -i && quietly wine reg add "$keys" /v Graphics /d "${2:-null}" /f &&
    quietly wine reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /d 2 /f &&
    quietly wine reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 2 /f && wineserver -w &&
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts"
}
