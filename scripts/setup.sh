#!/usr/bin/env bash
# Installs what a fresh Debian machine lacks for building and testing the library.
set -euo pipefail
packages=(
  cmake ninja-build ccache make g++ binutils swig openjdk-17-jdk-headless junit5 googletest libbenchmark-dev
  g++-powerpc-linux-gnu libc6-dev-powerpc-cross qemu-user clang libclang-rt-14-dev
  chromium python3
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
