# Completion of the four tools and of zelmctl for fish, which reads it under the name of each.

set -g __zelm_candidates (status dirname)/../../zelmctl/candidates

# Fails where a file name is to stand: fish then completes one itself.
function __zelm_find
    set -l typed (commandline -ct)
    # A quote that is still open can't be unescaped.
    set -l current (string replace -fr '^["\']' '' -- $typed; or string unescape -- $typed; or echo $typed)
    set -g __zelm_found (sh $__zelm_candidates (commandline -opc) "$current")
    test $status != 2
end

complete -c (status basename | string replace .fish '') -n __zelm_find -f -a '$__zelm_found'
