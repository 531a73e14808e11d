#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Shows the main job on the example picture: its fills, a recolour, and pictures of before and after.
set -euo pipefail
cd "$(dirname "$0")/.."

program=build/release/bin/huebrush
input=examples/town.odt
folder=build/demo
output=$folder/town-recoloured.odt
mkdir -p "$folder"

picture() { # DOCUMENT PICTURE
  /usr/bin/python3 tools/render.py "$1" "$2" --crop 19.5,36.5,258,150.1
}

echo "The fills of $input:"
$program fills "$input"
echo
echo "Roofs from red to blue, trees from green to autumn:"
set -x
$program recolor "$input" -o "$output" \
  --map '#C00000=#0070C0' --map '#2F6B3C=#B5651D' --map '#3F8A4D=#D98E04' --map '#5B9A3C=#C9762B' --map '#86BC55=#E3A94F'
{ set +x; } 2>/dev/null
picture "$input" "$folder/before.png"
picture "$output" "$folder/after.png"
echo
echo "written: $output"
echo "         $folder/before.png"
echo "         $folder/after.png"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "opening Writer with the result and the Huebrush tool bar ..."
  profile=$(realpath "$folder")/profile
  settings=$profile/user/registrymodifications.xcu
  if [ ! -e "$settings" ]; then
    mkdir -p "$profile/user"
    cat >"$settings" <<'END'  # Writer's tip of the day would lie over the picture.
<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse"><value>false</value></prop></item>
</oor:items>
END
  fi
  soffice --norestore "-env:UserInstallation=file://$profile" \
    "-env:BUNDLED_EXTENSIONS=file://$(realpath build/release/extension)" \
    --writer "$output" >/dev/null 2>&1 &
else
  echo "with a display, Writer would open here with the result and the Huebrush tool bar"
fi
