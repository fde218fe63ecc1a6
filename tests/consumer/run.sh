#!/usr/bin/env bash
# Installs a built Tarnbrook into a temporary prefix and builds programs outside the tree
# against it, as a user of the library would: the consumer program once through find_package
# and once through pkg-config, then every example of the README. Each is run.
#   run.sh BUILD_DIR [COMPILER_FLAGS...]   (the flags the library was built with, sanitizers)
set -euo pipefail
build=$(cd "$1" && pwd)
shift
flags="$*"
here=$(cd "$(dirname "$0")" && pwd)
top=$(cd "$here/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

cmake --install "$build" --prefix "$work/prefix" >/dev/null
test ! -e "$work/prefix/include/tarnbrook/draw/canvas_impl.hpp" # private headers stay private
# the optional database helpers are installed beside the core, for programs that ask for them
test -e "$work/prefix/include/tarnbrook/sqlite/sqlite_parameters.hpp"
find "$work/prefix" -name 'libtarnbrook_sqlite.*' | grep -q .

echo "== find_package(Tarnbrook)"
cmake -S "$here" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="$flags" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer"

echo "== pkg-config tarnbrook"
PKG_CONFIG_PATH=$(dirname "$(find "$work/prefix" -name tarnbrook.pc)")
export PKG_CONFIG_PATH
# shellcheck disable=SC2046,SC2086
c++ $flags "$here/main.cpp" $(pkg-config --cflags --libs tarnbrook) -o consumer-pc
./consumer-pc

# The README's examples: each ```cpp block whose first line is "// README example: NAME".
awk -v dir="$work" '
  /^```cpp$/ { getline first; if (first ~ /^\/\/ README example: /) { name = first;
               sub(/^\/\/ README example: /, "", name); file = dir "/" name ".cpp";
               print first > file; inside = 1 } next }
  /^```$/ { if (inside) close(file); inside = 0; next }
  inside { print > file }' "$top/README.md"
for example in "$work"/*.cpp; do
  [ -e "$example" ] || continue
  name=$(basename "$example" .cpp)
  echo "== README example $name"
  # shellcheck disable=SC2046,SC2086
  c++ $flags "$example" $(pkg-config --cflags --libs tarnbrook) -o "$name"
  "./$name"
done
echo "consumer: all built and ran"
