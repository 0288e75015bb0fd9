#!/bin/sh
# Prints a channel's programme guide for a web server: the page, or ?format=xml, json, rovi or
# gracenote. The request chooses one of these five and nothing else. Of the web server's command
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

cd "$channel" || exit 1
exec /usr/bin/env -i TZ="$zone" "$program" --cgi --schedule "$schedule" --format "$format" \
  --station-id "$station" < /dev/null
