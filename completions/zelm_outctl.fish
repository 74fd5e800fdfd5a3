# Completion of the four tools for fish, which reads it under the name of each.

set -g __zelm_candidates (status dirname)/../../zelmctl/candidates

# Fails where a file name is to stand: fish then completes one itself.
function __zelm_find
    set -l current (commandline -ct | string replace -r '^["\']' '')
    set -g __zelm_found (sh $__zelm_candidates (commandline -opc) "$current")
    test $status != 2
end

complete -c (status basename | string replace .fish '') -n __zelm_find -f -a '$__zelm_found'
