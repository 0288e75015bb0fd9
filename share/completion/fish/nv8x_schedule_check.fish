# Completes the command line of nv8x_schedule_check in fish.
# Made by scripts/make-completions of share/completion/options.tsv.

# The numbers of the channels that have a render-manager file.
function __nv8x_schedule_check_channels
    for file in /mnt/main/tv/rendermgr/channel*
        string match -r '(?<=/channel)[0-9]+$' $file
    end
end

complete -c nv8x_schedule_check -l channel -x -a '(__nv8x_schedule_check_channels)' -d 'check the schedule of channel N too'
complete -c nv8x_schedule_check -l explain -x -d 'tell what airs then and why'
complete -c nv8x_schedule_check -l format -x -a 'text json' -d 'print findings as text or json'
complete -c nv8x_schedule_check -l max -x -d 'print at most N findings of a file'
complete -c nv8x_schedule_check -l no-media -d 'leave media files alone'
complete -c nv8x_schedule_check -l rendermgr -r -F -d 'check the schedule that a render-manager file names too'
complete -c nv8x_schedule_check -l strict -d 'let warnings count as errors do'
complete -c nv8x_schedule_check -l time -x -d 'the report time, in seconds since 1970'
complete -c nv8x_schedule_check -l help -d 'print this and exit'
complete -c nv8x_schedule_check -l version -d 'print the version and exit'
