#!/usr/bin/env bash
# Installs the Debian packages listed in deps/debian-packages.txt that are missing.
# Does nothing (and needs no network) when everything is already there.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
missing=()
while read -r pkg; do
  pkg=${pkg%%#*}
  pkg=$(echo "$pkg" | tr -d '[:space:]')
  [ -n "$pkg" ] || continue
  if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$pkg")
  fi
done < "$here/deps/debian-packages.txt"
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
echo "Installing missing packages: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
"${sudo_cmd[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
