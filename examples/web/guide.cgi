#!/bin/sh
# Answers a web server with a channel's programme guide: ?channel=ID&format=NAME. Of the web
# server's command line ("$@") and environment, nothing but the query reaches the program.
exec /usr/bin/env -i QUERY_STRING="${QUERY_STRING-}" /usr/bin/nv8x_schedule_publish --cgi \
  --config /etc/nv8x/station.conf < /dev/null
