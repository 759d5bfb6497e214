# What scripts/demo, scripts/simrec, scripts/test, scripts/bench, scripts/fuzz and .ci/run
# share: finding and installing what a build needs, and building a preset. Sourced by
# bash scripts, never run.
# Everything told to the person goes to stderr.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 2

# The one list of what is needed: purpose | Debian package | name elsewhere |
# a quiet command that succeeds when it is there. Purposes: build, bench,
# bench-clang, python, duckdb, browser, aarch64, fuzz, format, tidy, libcxx, android, blueprint.
needs() {
  cat <<'END'
build|g++|a C++17 compiler (g++)|has_header vector
build|cmake|cmake >= 3.25|has_cmake
build|pkgconf|pkg-config|command -v pkg-config
build|ninja-build|ninja|command -v ninja
build|libtinyxml2-dev|tinyxml2|has_header tinyxml2.h
build|libgtest-dev|GoogleTest|has_header gtest/gtest.h
build|libcli11-dev|CLI11|has_header CLI/CLI.hpp
build|libfmt-dev|fmt|has_header fmt/format.h
build|nlohmann-json3-dev|nlohmann-json|has_header nlohmann/json.hpp
build|libsqlite3-dev|SQLite|has_header sqlite3.h
build|python3-dev|Python 3's headers|has_python_headers
build|pybind11-dev|pybind11|has_header pybind11/detail/class.h
build|python3-numpy|NumPy|has_python_module numpy
build|libfast-float-dev|fast_float|has_header fast_float/fast_float.h
build|libpng-dev|libpng|has_header png.h
build|libkainjow-mustache-dev|kainjow mustache|has_header kainjow/mustache.hpp
build|libjs-dygraphs|dygraphs|test -e /usr/share/javascript/dygraphs/dygraph.min.js
bench|libbenchmark-dev|Google Benchmark|has_header benchmark/benchmark.h
python|python3-pytest|pytest|has_python_module pytest
python|python3-pandas|pandas|has_pandas
python|mypy|mypy|has_python_module mypy.stubtest
bench-clang|clang|clang (clang++)|command -v clang++
bench|python3|Python 3|command -v python3
duckdb|nodejs|Node.js|command -v node
duckdb|npm|npm|command -v npm
duckdb|python3|Python 3|command -v python3
duckdb|python3-pandas|pandas|has_pandas
aarch64|g++-aarch64-linux-gnu|a cross compiler (aarch64-linux-gnu-g++)|command -v aarch64-linux-gnu-g++
aarch64|qemu-user|qemu-user (qemu-aarch64)|command -v qemu-aarch64
aarch64|libtinyxml2-dev:arm64|tinyxml2 for arm64|test -e /usr/lib/aarch64-linux-gnu/libtinyxml2.so
aarch64|libgtest-dev:arm64|GoogleTest for arm64|test -e /usr/lib/aarch64-linux-gnu/libgtest.a
fuzz|clang|clang (clang++)|command -v clang++
fuzz|libclang-rt-dev|clang's runtime libraries (libFuzzer)|has_libfuzzer
format|clang-format|clang-format|command -v clang-format
tidy|clang-tidy|clang-tidy|command -v clang-tidy
libcxx|clang|clang (clang++)|command -v clang++
libcxx|libc++-dev|libc++|has_libcxx
libcxx|libc++abi-dev|libc++abi|has_libcxx
libcxx|googletest|GoogleTest's sources|test -e /usr/src/googletest/CMakeLists.txt
android|android-liblog-dev|liblog|test -e /usr/include/android/android/log.h
android|android-libcutils-dev|libcutils|test -e /usr/include/android/cutils/properties.h
blueprint|soong|bpfix|command -v bpfix
browser|chromium|Chromium|command -v chromium
browser|nodejs|Node.js|command -v node
browser|npm|npm|command -v npm
END
}

say() { printf '%s\n' "$*" >&2; }

has_header() { printf '#if !__has_include(<%s>)\n#error\n#endif\n' "$1" | ${CXX:-c++} -E -x c++ -; }

# Of the interpreter that the module is built for, which CMake finds there, too.
has_python_module() { "$(PATH=/usr/bin:$PATH command -v python3)" -c "import $1"; }
has_python_headers() {
  "$(PATH=/usr/bin:$PATH command -v python3)" -c '
import os, sysconfig
os.stat(os.path.join(sysconfig.get_path("include"), "Python.h"))'
}

has_libcxx() { echo 'int main() {}' | clang++ -stdlib=libc++ -o /dev/null -x c++ -; }
has_libfuzzer() { ls "$(clang++ -print-resource-dir)"/lib/*/libclang_rt.fuzzer*.a; }

# Where apt puts it, whatever other python3 comes first.
has_pandas() { /usr/bin/python3 -c 'import pandas'; }

has_cmake() {
  local version
  version=$(cmake --version | sed -n '1s/^cmake version //p') &&
    printf '3.25\n%s\n' "$version" | sort -C -V
}

# Sets `packages` and `names` to what of the given purposes is missing.
find_missing() {
  local purpose package name probe
  packages=() names=()
  while IFS='|' read -r purpose package name probe; do
    [[ " $* " == *" $purpose "* ]] || continue
    $probe </dev/null >/dev/null 2>&1 && continue
    packages+=("$package") names+=("$name")
  done < <(needs)
}

listed() { local IFS=,; echo "$*" | sed 's/,/, /g'; }

# Installs `packages`. The lists of apt are fetched anew only when they do not
# know a package, or when they name a version that is gone.
apt_install() {
  local as_root=() foreign=
  [ "$(id -u)" = 0 ] || as_root=(sudo -n)
  as_root+=(env DEBIAN_FRONTEND=noninteractive)
  [[ " ${packages[*]} " != *:arm64\ * ]] || dpkg --print-foreign-architectures | grep -qx arm64 ||
    { foreign=1; "${as_root[@]}" dpkg --add-architecture arm64 || return; }
  if [ -n "$foreign" ] || ! apt-get -s install "${packages[@]}" >/dev/null 2>&1; then
    "${as_root[@]}" apt-get -q update >&2 || return
  fi
  local install=("${as_root[@]}" apt-get -q -y --no-install-recommends install "${packages[@]}")
  "${install[@]}" >&2 || { "${as_root[@]}" apt-get -q update >&2 && "${install[@]}" >&2; }
}

# Makes sure that everything for the given purposes is there, or says what is
# missing and ends the script with status 2.
ensure() {
  local packages names command
  find_missing "$@"
  [ ${#packages[@]} -gt 0 ] || return 0
  if ! command -v apt-get >/dev/null; then
    say "Needed and not found: $(listed "${names[@]}"). Install them and start again."
    exit 2
  fi
  command="apt-get install ${packages[*]}"
  [[ "$command" != *:arm64* ]] || command="dpkg --add-architecture arm64 && apt-get update && $command"
  if [ "$(id -u)" != 0 ] && ! sudo -n true 2>/dev/null; then
    say "Packages are missing. As root: $command"
    exit 2
  fi
  say "Installing with apt: ${packages[*]}"
  apt_install || { say "The installation failed. It was: $command"; exit 2; }
  find_missing "$@"
  [ ${#names[@]} = 0 ] || { say "Still not found after the installation: $(listed "${names[@]}")."; exit 2; }
}

# Ends the script with status 2 when build/ holds files of another user, root mostly,
# that this one may not replace.
require_own_build() {
  local owner
  [ -e build ] || [ -w . ] || { say "$root belongs to another user: nothing can be built there."; exit 2; }
  owner=$(find build ! -user "$(id -u)" ! -type l ! -writable -printf '%u' -quit 2>/dev/null)
  [ -n "$owner" ] || return 0
  say "build/ was made by the user $owner, who must remove it or give it away first:"
  say "  chown -R $(id -u) '$root/build'"
  exit 2
}

# own_build_folder FOLDER [SOURCE]: removes one that was copied or moved here with its clone,
# and would build and test the other tree.
own_build_folder() {
  local source
  source=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$1/CMakeCache.txt" 2>/dev/null)
  [ -z "$source" ] || [ "$source" -ef "${2:-.}" ] && return
  require_own_build
  say "$1 belongs to $source: it is made anew."
  rm -rf "$1"
}

# configure PRESET: only when there is no configured build folder or the presets
# are newer; ninja notices every other change by itself.
configure() {
  local made=build/$1/build.ninja
  own_build_folder "build/$1" || return
  [ ! -e "$made" ] || [ CMakePresets.json -nt "$made" ] || return 0
  require_own_build
  cmake --preset "$1" >&2 && touch "$made"
}

# build PRESET [TARGET...]: says nothing when all is up to date.
build() {
  local preset=$1
  shift
  configure "$preset" || return
  [[ "$(ninja -C "build/$preset" -n "$@" 2>/dev/null)" != *'no work to do.' ]] || return 0
  require_own_build
  cmake --build --preset "$preset" ${1:+--target "$@"} >&2
}
