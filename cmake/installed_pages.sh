#!/bin/sh
# Gives the pages, examples and manual pages of an install the form that holds where they lie: without
# the parts that speak of the source tree, with those that are hidden there, and with the paths of this prefix where the tree has those
# of /usr: cmake/installed_pages.sh ROOT PREFIX DOCUMENTATION MANUAL
# ROOT is what DESTDIR names, or empty; the two folders are below the prefix.
set -eu
prefix=$2 documentation=$1$2/$3 manual=$1$2/$4

find "$documentation" -name '*.md' -exec \
  sed -i -e '/^<!-- source tree -->$/,/^<!-- \/source tree -->$/d' \
    -e '/^<!-- installed$/,/^-->$/{/^<!-- installed$/d;/^-->$/d}' {} +
[ "$prefix" != /usr ] || exit 0
# Files of ours, by their names. Media files are left alone.
ours='((bin|lib|share)/[[:alnum:]/._-]*(nv8x))'
grep -rIlE "/usr/$ours" "$documentation" "$manual" | while IFS= read -r file; do
  sed -i -E "s#(^|[^[:alnum:]])/usr/$ours#\1$prefix/\2#g" "$file"
done
