# fish completion for vantry(1)

function __vantry_plots
    __fish_complete_directories
    path filter -f -- (commandline -ct)*.zrd
end

complete -c vantry -f -a '(__vantry_plots)'
complete -c vantry -o d -d 'Write a JVD file instead of JVX'
complete -c vantry -o t -x -d 'Write an animated document as it is at this time'
complete -c vantry -o f -x -d 'Write an animation with so many frames to a unit of time'
complete -c vantry -o o -r -F -d 'The output file'
complete -c vantry -o v -d 'Print the version'
complete -c vantry -o h -d 'Print the usage'
