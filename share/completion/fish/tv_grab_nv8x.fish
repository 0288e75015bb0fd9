# Completes the command line of tv_grab_nv8x in fish.
# Made by scripts/make-completions of share/completion/options.tsv.

# The ids of the channels of the configuration that the line names, or of the user's own.
function __tv_grab_nv8x_ids
    set -l file ~/.xmltv/tv_grab_nv8x.conf
    set -l before
    for word in (commandline -opc)
        test "$before" = --config-file; and set file $word
        string match -q -- '--config-file=*' $word
        and set file (string replace -- --config-file= '' $word)
        set before $word
    end
    set file (string replace -r '^~/' ~/ -- $file)
    test -f "$file" -a -r "$file"; or return
    string replace -rf '^[ \t]*\[[ \t]*([[:alnum:]._-]+)[ \t]*\].*' '$1' <$file
end

complete -c tv_grab_nv8x -f
complete -c tv_grab_nv8x -l days -x -d 'days of the guide'
complete -c tv_grab_nv8x -l offset -x -d 'days from today to the first of them'
complete -c tv_grab_nv8x -l output -r -F -d 'write to FILE instead of standard output'
complete -c tv_grab_nv8x -l quiet -d 'show no progress'
complete -c tv_grab_nv8x -l config-file -r -F -d 'the configuration'
complete -c tv_grab_nv8x -l configure -d 'ask for the channels and write the configuration'
complete -c tv_grab_nv8x -l list-channels -d 'print the channels alone'
complete -c tv_grab_nv8x -l channel -x -a '(__tv_grab_nv8x_ids)' -d 'one channel only'
complete -c tv_grab_nv8x -l jobs -x -d 'channels worked on at a time'
complete -c tv_grab_nv8x -l description -d 'print what this grabber is'
complete -c tv_grab_nv8x -l capabilities -d 'print what it can do'
complete -c tv_grab_nv8x -l version -d 'print the version'
complete -c tv_grab_nv8x -l help -d 'print this'
