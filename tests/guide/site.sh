# A station in a scratch folder, and what its tests say of a run of render-guide; for sourcing, with
# the arguments RENDER_GUIDE PROGRAM CHECKER GRABBER CHANNEL_FOLDER.
render_guide=$1 program=$2
export CHECK_PROGRAM=$3 XMLTV_PROGRAM=$4
scratch=$(mktemp -d)
trap 'chmod -R u+rwx "$scratch"; rm -rf "$scratch"' EXIT
cd "$scratch" || exit 1
mkdir channels bin
cp -R "$5" channels/kbt
# A slip that the week has on purpose.
sed -i 's/end = Fri 8:00$/end = Fri 8:00 pm/' channels/kbt/week.schedule
cp -R channels/kbt 'channels/Kelmouth Bay 1'
export CHANNELS=$scratch/channels TZ=Europe/London PROGRAM=$program
unset CHECK FORCE FORMATS MIN_ITEMS MIN_PERCENT SCHEDULE CHANNEL_FOLDER STATION_ID TZDIR \
  XMLTV_ID XMLTV_NAME XMLTV_LANGUAGE

failed=0
wrong() {
  echo "$situation: $*"
  failed=1
}
# A web folder with the old page of channel kbt.
begin() {
  situation=$1
  chmod -R u+rwx web 2> /dev/null
  rm -rf web started
  mkdir web
  printf '<p>The old page</p>\n' > web/kbt.html
  cp web/kbt.html old
}
render() {
  WEB_FOLDER=$scratch/web "$render_guide" "$@" 2> messages
}
expect_status() {
  [ "$1" -eq "$2" ] || { wrong "status $1, not $2"; cat messages; }
}
# All that was said but how the program tells its progress.
expect_said() {
  diff <(printf %s "${1:+$1$'\n'}") \
    <(grep -Ev '^(Schedule file location: |Loaded: |Clipping overlapping item$)' messages) ||
    wrong 'other words'
}
expect_old_page() {
  cmp -s web/kbt.html old || wrong 'the old page is not as it was'
}
expect_new_page() {
  [ "$(head -c 15 web/kbt.html)" = '<!DOCTYPE html>' ] || wrong 'no new page'
}
expect_no_drafts() {
  [ -z "$(find web -name '.render-guide.*')" ] || wrong 'a draft is left'
}
# A program of that name that does what the lines on standard input say.
stand_in() {
  { echo '#!/bin/sh'; cat; } > "bin/$1"
  chmod +x "bin/$1"
}
await() {  # file
  local tries=0
  until [ -e "$1" ]; do
    sleep 0.02
    [ $((tries += 1)) -lt 500 ] || { wrong "no $1 after ten seconds"; return; }
  done
}
