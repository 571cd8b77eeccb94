#!/bin/sh
# Packs the files named by the resource lists in vnr/ into <folder>.vnp.
# Started by the editor in the output folder, beside MakeVNP.exe.
cd "$(dirname "$0")" || exit 1
exec ./MakeVNP.exe
