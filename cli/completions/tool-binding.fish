# SPDX-License-Identifier: MIT
# Completion of tool-binding for fish.

complete -c tool-binding -n __fish_use_subcommand -f -a admit -d 'Admit requests'
complete -c tool-binding -n __fish_use_subcommand -f -a missing -d 'Say what calls lack that their actions need'
complete -c tool-binding -n __fish_use_subcommand -f -a default -d 'Look up what calls get for what they leave out'
complete -c tool-binding -n __fish_use_subcommand -l version -d 'Show the version'
complete -c tool-binding -s h -l help -d 'Show the usage'

complete -c tool-binding -n '__fish_seen_subcommand_from admit missing default' -r -F -l registry \
    -d 'The file that declares the tools'
complete -c tool-binding -n '__fish_seen_subcommand_from admit' -r -F -l context \
    -d 'A JSON object whose entries are offered to every handler'
