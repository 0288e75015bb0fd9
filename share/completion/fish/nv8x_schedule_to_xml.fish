# Completes the command line of nv8x_schedule_to_xml in fish.
# Made by scripts/make-completions of share/completion/options.tsv.

# The numbers of the channels that have a render-manager file.
function __nv8x_schedule_to_xml_channels
    for file in /mnt/main/tv/rendermgr/channel*
        string match -r '(?<=/channel)[0-9]+$' $file
    end
end

complete -c nv8x_schedule_to_xml -f
complete -c nv8x_schedule_to_xml -l schedule -r -F -d 'print this schedule file'
complete -c nv8x_schedule_to_xml -l rendermgr -r -F -d 'print the schedule that a render-manager file names'
complete -c nv8x_schedule_to_xml -l channel -x -a '(__nv8x_schedule_to_xml_channels)' -d 'print the schedule of channel N'
complete -c nv8x_schedule_to_xml -l time -x -d 'show the unit around this time, in seconds since 1970'
complete -c nv8x_schedule_to_xml -l cgi -d 'answer a web server'
complete -c nv8x_schedule_to_xml -l pcn-week -d 'only the previous, current and next week'
complete -c nv8x_schedule_to_xml -l pcn-month -d 'only the previous, current and next month'
complete -c nv8x_schedule_to_xml -l d-patch -d 'trace the repairs on standard error'
complete -c nv8x_schedule_to_xml -l format -x -a 'xml html json rovi gracenote' -d 'print the document in this format'
complete -c nv8x_schedule_to_xml -l station-id -x -d 'the name of the station in the listings'
complete -c nv8x_schedule_to_xml -l help -d 'print the options'
