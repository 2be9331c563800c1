# Shared by the scripts beside it: source this first. It stops a script at the first failure and puts it in the
# repository's root.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
jobs=$(nproc)

build_packages=(cmake g++ ninja-build libexpat1-dev)
test_packages=(libgtest-dev python3 gdb locales)
check_packages=(clang clang-format clang-tidy libclang-rt-dev git make pkg-config)
docs_packages=(doxygen python3)
bench_packages=(libbenchmark-dev pkg-config libpugixml-dev libtinyxml2-dev libxml2-dev librapidxml-dev)

# A heading with the time of day, so that a log tells how long each step took.
say() { printf '\n== %(%T)T %s\n' -1 "$*"; }

# Installs those of the named Debian packages that are missing.
need_packages() {
  local package missing=() root=()
  if ! command -v apt-get dpkg-query >/dev/null; then
    say "This is not Debian: assuming that these are installed: $*"
    return
  fi
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  if [ "$(id -u)" -ne 0 ]; then
    root=(sudo)
    if ! command -v sudo >/dev/null; then
      say 'Debian packages are missing, and there is no sudo to install them with. Please have this run by root:'
      printf '    apt-get install --no-install-recommends %s\n' "${missing[*]}"
      exit 1
    fi
  fi
  say "Installing missing Debian packages: ${missing[*]}"
  "${root[@]}" env apt-get -qq update
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y --no-install-recommends \
    -o DPkg::Lock::Timeout=300 install "${missing[@]}" </dev/null
}

# build PRESET [TARGET...]: configures the preset and builds it, or some targets of it.
build() {
  local preset=$1
  shift
  cmake --preset "$preset"
  cmake --build --preset "$preset" --parallel "$jobs" ${1:+--target "$@"}
}

# Builds what the Debian packages hold in build/package, with the types that debuggers know, which cpack takes out again.
build_for_packages() {
  cmake -S . -B build/package -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS=-g
  cmake --build build/package --parallel "$jobs"
}
