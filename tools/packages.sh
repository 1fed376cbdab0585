# SPDX-License-Identifier: MIT
# Sourced by the other scripts: installs the Debian packages that a script names and the machine lacks.

need_packages() {
  command -v dpkg-query >/dev/null || {
    echo "no dpkg here: trusting that these are installed: $*" >&2
    return 0
  }
  local package lacking=() as_root=()
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || lacking+=("$package")
  done
  [ ${#lacking[@]} -gt 0 ] || return 0
  [ "$(id -u)" = 0 ] || as_root=(sudo)
  echo "installing ${lacking[*]}" >&2
  "${as_root[@]}" apt-get update -qq </dev/null >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${lacking[@]}" </dev/null >&2
}

# shellcheck disable=SC2034  # for the scripts that source this file
build_packages=(g++ cmake ninja-build libsimdjson-dev libcli11-dev)
# shellcheck disable=SC2034
test_packages=("${build_packages[@]}" libgtest-dev nlohmann-json3-dev unicode-data locales python3 pkg-config dpkg-dev)
