#!/usr/bin/env bash
# Installs what building, testing and the demo need on Debian 12 and 13. Does nothing when all is there.
set -euo pipefail

packages=(
  # build
  git g++ cmake ninja-build make libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev libcli11-dev
  libpng-dev librsvg2-bin zip
  # the host
  libreoffice-writer libreoffice-gtk3 libreoffice-dev libreoffice-dev-common
  libreoffice-style-colibre adwaita-icon-theme fonts-dejavu fonts-liberation
  # another reader of database files, to compare with
  mdbtools mdbtools-dev pkg-config
  # other writers of documents, to be read
  pandoc python3-docx python3-odf
  # the sanitizers
  clang libclang-rt-dev
  # tests in the host's windows, and pictures of its documents
  python3 python3-uno xvfb xauth xdotool openbox wmctrl x11-utils imagemagick poppler-utils procps
)

# tools/lint.sh needs these very versions. Debian 13 has only later ones.
if (. /etc/os-release && [ "$ID ${VERSION_ID:-}" = "debian 12" ]); then
  packages+=(clang-format-14 clang-tidy-14)
fi

# What runs the other reader may have come from elsewhere than from a package.
command -v node >/dev/null || packages+=(nodejs)
command -v npm >/dev/null || packages+=(npm)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
    missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
