# fish completion for netrove-find

complete -c netrove-find -f
complete -c netrove-find -l from -x -d 'Start at this node instead of the whole network'
complete -c netrove-find -l no-recurse -d 'Leave the folders of shares alone'
complete -c netrove-find -l exclude -x -d 'Leave out what has this name'
complete -c netrove-find -l admin-shares -d 'Try the hidden shares too'
complete -c netrove-find -l this-computer -d 'Search this computer too'
complete -c netrove-find -l logon-file -r -F -d 'Log on with the user of this file'
complete -c netrove-find -l details -d 'Print size, date, attributes and audio data too'
complete -c netrove-find -l max -x -d 'Stop after that many files'
complete -c netrove-find -l log -r -F -d 'Write what the search looks at to this file'
complete -c netrove-find -s h -l help -d 'Print the help'
complete -c netrove-find -l version -d 'Print the version'
