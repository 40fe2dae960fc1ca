# Completion of zelta for fish.

set -l commands send formats export import show write fit
set -l without_command "not __fish_seen_subcommand_from $commands"

complete -c zelta -n "$without_command" -a send -d 'Give the running recorder a command'
complete -c zelta -n "$without_command" -a formats -d 'List the export formats'
complete -c zelta -n "$without_command" -a export -d 'Write the chapters for another program'
complete -c zelta -n "$without_command" -a import -d 'Make a document of a list'
complete -c zelta -n "$without_command" -a show -d 'Print the chapters'
complete -c zelta -n "$without_command" -a write -d 'Put the chapters into audio files'
complete -c zelta -n "$without_command" -a fit -d 'Find the chapters in a finished file'
complete -c zelta -n "$without_command" -l headless -d 'Record without a window'
complete -c zelta -n "$without_command" -l record -d 'Start the clock at once'
complete -c zelta -n "$without_command" -l new -d 'Open a new, empty document'
complete -c zelta -n "$without_command" -l osc-port -x -d 'Listen on this UDP port'
complete -c zelta -n "$without_command" -l osc-send -x -d 'Send the state to HOST:PORT'
complete -c zelta -n "$without_command" -l follow -x -a 'obs jack osc' -d 'Start, pause and stop the clock with this recorder'
complete -c zelta -n "$without_command" -l listen -x -a 'default (pactl list short sources 2>/dev/null | cut -f2)' -d 'Listen along to this input'
complete -c zelta -n "$without_command" -s h -l help -d 'Print the usage'
complete -c zelta -n "$without_command" -s v -l version -d 'Print the version'

complete -c zelta -n '__fish_seen_subcommand_from send' -f -a 'toggleRecording newChapter removeChapter removeLastChapter selectPreviousChapter selectNextChapter'
complete -c zelta -n '__fish_seen_subcommand_from send' -l osc-port -x -d 'Port of this computer'
complete -c zelta -n '__fish_seen_subcommand_from export' -l format -x -a '(zelta formats 2>/dev/null | cut -f1)' -d 'Name of the format'
complete -c zelta -n '__fish_seen_subcommand_from export' -l option -d "Tick the format's checkbox"
complete -c zelta -n '__fish_seen_subcommand_from export' -l pattern -x -d 'Line of Show Notes'
complete -c zelta -n '__fish_seen_subcommand_from export' -l output -r -d 'File to write'
complete -c zelta -n '__fish_seen_subcommand_from show' -l json -d 'For programs'
complete -c zelta -n '__fish_seen_subcommand_from show import' -l item -x -d 'Which show of a feed'
complete -c zelta -n '__fish_seen_subcommand_from import' -l shift -x -d 'Seconds by which the chapters are later'
complete -c zelta -n '__fish_seen_subcommand_from import' -l add -d 'Add to the document'
complete -c zelta -n '__fish_seen_subcommand_from import' -l output -r -d 'Document to make'
complete -c zelta -n '__fish_seen_subcommand_from write' -l shift -x -d 'Seconds by which the chapters are later'
complete -c zelta -n '__fish_seen_subcommand_from write' -l output -r -d 'File to write'
complete -c zelta -n '__fish_seen_subcommand_from fit' -l finished -r -d 'Finished audio file'
complete -c zelta -n '__fish_seen_subcommand_from fit' -l heard -r -d 'Raw recording of the show'
complete -c zelta -n '__fish_seen_subcommand_from fit' -l zero -x -d "Where the clock's zero lies in it, in seconds"
complete -c zelta -n '__fish_seen_subcommand_from fit' -l output -r -d 'Document to write'
complete -c zelta -n '__fish_seen_subcommand_from fit' -l json -d 'For programs'
complete -c zelta -n '__fish_seen_subcommand_from formats' -f
