# Shared by the scripts beside it; sourced, never run.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
jobs=$(nproc 2>/dev/null || echo 2)
export CCACHE_DIR=${CCACHE_DIR:-$root/build/ccache}
export CCACHE_SLOPPINESS=pch_defines,time_macros  # or files with precompiled headers are not kept

say() { printf '\n== %s\n' "$*"; }

# Installs the Debian packages among "$@" that are missing. Without apt-get the build itself will
# say what it lacks.
need() {
  local missing=() package
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null || return 0
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  say "installing: ${missing[*]}"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
}

build_packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libpng-dev libdeflate-dev
  libgif-dev)
wasm_packages=(clang-19 lld-19 libc++-19-dev-wasm32 libc++abi-19-dev-wasm32 wasi-libc
  libclang-rt-19-dev-wasm32)
browser_packages=(chromium)
command -v npm >/dev/null || browser_packages+=(nodejs npm)
bench_packages=(pkg-config libcairo2-dev libagg-dev)
arm_packages=(g++-aarch64-linux-gnu gcc qemu-user)
test_packages=(ccache zsh fish libgtest-dev clang libclang-rt-dev clang-format clang-tidy
  pkg-config dpkg-dev dwarves doxygen libsdl2-dev python3)

# configure PRESET [FOLDER] [-DOPTION=VALUE…]: a build folder that came from another place (a copied
# or moved clone) is of no use and is made anew.
configure() {
  local preset=$1 folder=$root/build/$1
  shift
  if [ $# -gt 0 ] && [ "${1#-}" = "$1" ]; then
    folder=$root/build/$1
    shift
  fi
  if [ -f "$folder/CMakeCache.txt" ] &&
    ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"; then
    rm -rf "$folder"
  fi
  say "configuring ${folder#"$root"/}"
  cmake -S "$root" --preset "$preset" -B "$folder" "$@" -Wno-dev
}

# build FOLDER [TARGET…]
build() {
  local folder=$root/build/$1
  shift
  say "building ${folder#"$root"/} (${jobs} at a time)"
  cmake --build "$folder" --parallel "$jobs" ${1:+--target "$@"}
}

# packed_module FOLDER: the modules of build/wasm as a page carries them.
packed_module() {
  local module
  mkdir -p "$1"
  for module in "$root"/build/wasm/*.wasm; do
    gzip -9nc "$module" > "$1/$(basename "$module").gz"
  done
}
