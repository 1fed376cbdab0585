#!/bin/bash
# Builds a small consumer against the library in each way that the README offers, and runs it.
#
#   package_test.sh SOURCE STATIC_BUILD SCRATCH CXX
#
# The static library is the one of STATIC_BUILD; the shared one comes out of the consumer that takes the sources in.
set -euo pipefail
source_tree=$1 static_build=$2 scratch=$3 cxx=$4
here=$source_tree/tests/package
options=(-G Ninja -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_BUILD_TYPE=None)

rm -rf "$scratch"/static "$scratch"/shared "$scratch"/root "$scratch"/build_* # the subdirectory build is kept: it is the slow one
mkdir -p "$scratch"

say() { printf '%s\n' "== $*"; }

run() { # each program prints the refusal of one request
  local program
  for program in "$@"; do
    [ "$("$program")" = "Unknown parameter 'limt' for search. Did you mean 'limit'? It takes: limit." ]
  done
}

expect_files() { # PREFIX
  local file
  for file in include/tool_binding/tool_binding.hpp include/tool_binding/json/reader.hpp \
    include/tool_binding/report/report.hpp include/tool_binding/server/server.hpp \
    share/man/man1/tool-binding.1* share/bash-completion/completions/tool-binding \
    share/zsh/site-functions/_tool-binding share/fish/vendor_completions.d/tool-binding.fish; do
    compgen -G "$1/$file" >/dev/null || { say "missing: $file"; exit 1; }
  done
  "$1/bin/tool-binding" --version
  local page link
  page=$(echo "$1"/share/doc/*/README.md)
  grep -ohE '\]\((docs|examples)/[^)#]+' "$page" | cut -d'(' -f2 | while read -r link; do
    [ -e "${page%/*}/$link" ] || { say "README.md refers to $link, which is missing"; exit 1; }
  done
}

with_find_package() { # PREFIX KIND
  cmake -S "$here/consumer" -B "$scratch/build_$2" "${options[@]}" -DCMAKE_PREFIX_PATH="$1" >/dev/null
  cmake --build "$scratch/build_$2"
  run "$scratch/build_$2"/with_{tool_binding,json,report,server,nlohmann}
}

with_pkg_config() { # PREFIX NAME
  local prefix=$1 name=$2 part flags
  part=${name#tool_binding} # "_json", or nothing
  flags=$(PKG_CONFIG_PATH=$prefix/lib/pkgconfig pkg-config --cflags --libs "$name")
  # shellcheck disable=SC2086  # the flags are words
  "$cxx" -std=c++20 "-DWITH${part^^}" "$here/consumer/main.cpp" $flags -Wl,-rpath,"$prefix/lib" -o "$scratch/build_pkg_config"
  run "$scratch/build_pkg_config"
}

say "installed static, find_package"
cmake --install "$static_build" --prefix "$scratch/static" >/dev/null
expect_files "$scratch/static"
with_find_package "$scratch/static" static
say "installed static, pkg-config"
with_pkg_config "$scratch/static" tool_binding_json
with_pkg_config "$scratch/static" tool_binding_report
with_pkg_config "$scratch/static" tool_binding_server
with_pkg_config "$scratch/static" tool_binding_nlohmann
say "installed static, without simdjson"
if cmake -S "$here/consumer" -B "$scratch/build_without" "${options[@]}" -DCMAKE_PREFIX_PATH="$scratch/static" \
  -DCMAKE_DISABLE_FIND_PACKAGE_simdjson=ON >"$scratch/without.log" 2>&1; then
  say "the component json was found"
  exit 1
fi
grep -q "install libsimdjson-dev" "$scratch/without.log"

say "add_subdirectory, shared"
cmake -S "$here/consumer" -B "$scratch/subdirectory" "${options[@]}" -DWAY=subdirectory -DCMAKE_INSTALL_LIBDIR=lib \
  -DTOOL_BINDING_SOURCE="$source_tree" -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 >/dev/null
cmake --build "$scratch/subdirectory"
run "$scratch"/subdirectory/with_{tool_binding,json,report,server,nlohmann}

say "installed shared, find_package"
cmake --install "$scratch/subdirectory" --prefix "$scratch/shared" >/dev/null
expect_files "$scratch/shared"
with_find_package "$scratch/shared" shared
say "installed shared, pkg-config"
with_pkg_config "$scratch/shared" tool_binding
with_pkg_config "$scratch/shared" tool_binding_server

if command -v dpkg-shlibdeps >/dev/null; then
  say "Debian packages, in an empty root"
  (cd "$scratch/subdirectory" && rm -f ./*.deb && cpack -G DEB >cpack.log)
  for package in "$scratch"/subdirectory/*.deb; do
    dpkg-deb -x "$package" "$scratch/root"
  done
  compgen -G "$scratch/root/usr/share/doc/libtool-binding0.*/copyright" >/dev/null
  LD_LIBRARY_PATH=$scratch/root/usr/lib expect_files "$scratch/root/usr"
  # Installed, the directory is searched anyway.
  LD_LIBRARY_PATH=$scratch/root/usr/lib with_find_package "$scratch/root/usr" packages
  ! command -v lintian >/dev/null || lintian --fail-on error "$scratch"/subdirectory/*.deb
fi

say "a shared library shows what its public headers declare"
if nm -DC --defined-only "$scratch/shared/lib/libtool_binding.so" | grep -E ' [TDB] ' | grep -E '::_[a-z]|near_|CompiledTool::[a-z]'; then
  say "these are private"
  exit 1
fi
