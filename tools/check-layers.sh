#!/usr/bin/env bash
# Folders depend only downwards: core <- assets <- script <- effects <- engine3d <- shell.
# Lists every include that points up that order and fails when there is one.
set -u
cd "$(dirname "$0")/.."
order=(core assets script effects engine3d shell)
status=0
for ((i = 0; i < ${#order[@]}; i++)); do
    folder=${order[i]}
    higher=$(IFS='|'; echo "${order[*]:i+1}")
    [ -n "$higher" ] || continue
    [ -d "$folder" ] || continue
    if found=$(grep -rnE "^\s*#\s*include\s+\"($higher)/" "$folder"); then
        printf '%s\n' "$found"
        status=1
    fi
done
[ "$status" -eq 0 ] && echo "every include points down the folder order"
exit "$status"
