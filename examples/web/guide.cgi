#!/bin/sh
# Prints a channel's programme guide for a web server: the page, or ?format=xml, json, rovi or
# gracenote. The request chooses one of these and nothing else. Of the web server's command
# line ("$@") and environment nothing reaches the program.

program=/usr/bin/nv8x_schedule_to_xml
channel=/srv/channel      # the folder where schedule and media paths begin
schedule=week.schedule
station=KBT1              # for the listings
zone=Europe/London        # the station's time zone

case ${QUERY_STRING-} in
  format=xml | format=json | format=rovi | format=gracenote) format=${QUERY_STRING#format=} ;;
  *) format=html ;;
esac

# As in render-guide, word for word:
is_zone_file() {  # name in the zone database, or path
  case $1 in
    /*) zone_file=$1 ;;
    *) zone_file=${TZDIR:-/usr/share/zoneinfo}/$1 ;;
  esac
  mark=
  [ ! -f "$zone_file" ] || IFS= read -r mark 2> /dev/null < "$zone_file" || :
  case $mark in
    TZif*) ;;
    *) return 1 ;;
  esac
}
# Written out, as <+03>-3 or EST5EDT,M3.2.0,M11.1.0.
is_written_zone() {
  name='([A-Za-z]{3,}|<[A-Za-z0-9+-]{3,}>)'
  offset='[+-]?(2[0-4]|[01]?[0-9])(:[0-5]?[0-9]){0,2}'
  rule=',(M[0-9]{1,2}\.[1-5]\.[0-6]|J?[0-9]{1,3})(/[+-]?[0-9]{1,3}(:[0-5]?[0-9]){0,2})?'
  printf %s "$1" | LC_ALL=C /usr/bin/grep -Eqxz "$name$offset($name($offset)?($rule$rule)?)?"
}
# The C library takes a zone that it does not know as UTC, without a word.
is_zone() {  # value of TZ; empty: UTC
  [ -z "${1#:}" ] || is_zone_file "${1#:}" || is_written_zone "${1#:}"
}

unset TZDIR  # the program will not see it either
is_zone "$zone" || { echo "guide.cgi: the machine knows no zone '$zone'" >&2; exit 1; }
cd "$channel" || exit 1
exec /usr/bin/env -i TZ="$zone" "$program" --cgi --schedule "$schedule" --format "$format" \
  --station-id "$station" < /dev/null
