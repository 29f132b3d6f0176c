# bash completion for netrove-find

_netrove_find() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}
    COMPREPLY=()
    case $prev in
        --log | --logon-file)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$cur")
            return ;;
        --from | --exclude | --max)
            return ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--from --no-recurse --exclude --admin-shares
            --this-computer --logon-file --details --max --log -h --help --version' -- "$cur")
    fi
} &&
    complete -F _netrove_find netrove-find
