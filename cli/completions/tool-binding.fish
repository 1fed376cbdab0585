# SPDX-License-Identifier: MIT
# Completion of tool-binding for fish.

complete -c tool-binding -n __fish_use_subcommand -f -a admit -d 'Admit requests'
complete -c tool-binding -n __fish_use_subcommand -f -a missing -d 'Show which required parameters calls leave out'
complete -c tool-binding -n __fish_use_subcommand -f -a default -d 'Look up what calls get for what they leave out'
complete -c tool-binding -n __fish_use_subcommand -f -a explain -d 'Show what becomes of one request, and why'
complete -c tool-binding -n __fish_use_subcommand -f -a check -d 'Name what is wrong or doubtful in a registry'
complete -c tool-binding -n __fish_use_subcommand -f -a schema -d 'Show the tools as their callers are told of them'
complete -c tool-binding -n __fish_use_subcommand -f -a import -d 'Make a registry of a list of tools'
complete -c tool-binding -n __fish_use_subcommand -f -a report -d 'Show what callers get wrong'
complete -c tool-binding -n __fish_use_subcommand -f -a compare -d 'Show what a changed registry answers otherwise'
complete -c tool-binding -n __fish_use_subcommand -l version -d 'Show the version'
complete -c tool-binding -s h -l help -d 'Show the usage'

complete -c tool-binding -n '__fish_seen_subcommand_from admit missing default explain check schema report compare' -r -F -l registry \
    -d 'The file that declares the tools'
complete -c tool-binding -n '__fish_seen_subcommand_from admit explain' -r -F -l context \
    -d 'A JSON object whose entries are offered to every handler'
complete -c tool-binding -n '__fish_seen_subcommand_from admit' -l findings \
    -d 'Add each note and problem as data for programs'
complete -c tool-binding -n '__fish_seen_subcommand_from admit missing default report compare' -x -l jobs \
    -d 'Threads that share the lines; 0: one on each core'
complete -c tool-binding -n '__fish_seen_subcommand_from report' -r -F -l merge \
    -d 'Add reports that --json wrote'
complete -c tool-binding -n '__fish_seen_subcommand_from report' -r -F -l html \
    -d 'Write the report as a page for a browser'
complete -c tool-binding -n '__fish_seen_subcommand_from compare' -r -F -l with \
    -d 'The file that declares the tools otherwise'
complete -c tool-binding -n '__fish_seen_subcommand_from compare' -l json -d 'Write the counts for programs'
complete -c tool-binding -n '__fish_seen_subcommand_from compare' -l list \
    -d 'Write a line for each request that is answered otherwise'
complete -c tool-binding -n '__fish_seen_subcommand_from compare' -x -l fail-on -a 'refused changed' \
    -d 'What makes the exit status 1'
complete -c tool-binding -n '__fish_seen_subcommand_from report' -l json -d 'Write the report for programs'
complete -c tool-binding -n '__fish_seen_subcommand_from import' -l lenient \
    -d 'Let a parameter take text where no type says what it is'
complete -c tool-binding -n '__fish_seen_subcommand_from schema' -l conditions \
    -d 'Add what each action needs as an allOf'
complete -c tool-binding -n '__fish_seen_subcommand_from schema' -l strict -d 'For strict function calling'
complete -c tool-binding -n '__fish_seen_subcommand_from schema' -l open \
    -d 'For clients that validate before they send'
complete -c tool-binding -n '__fish_seen_subcommand_from schema' -l names -d 'Show names alone'
complete -c tool-binding -n '__fish_seen_subcommand_from import' -l verbose -d 'Name what changes nothing as well'
complete -c tool-binding -n '__fish_seen_subcommand_from explain report compare' -x -l color -a 'auto always never' \
    -d 'Colours'

# The names of the tools of the registry that the line names or, behind a tool, those of its arguments.
function __tool_binding_names
    set -l words (commandline -opc)
    set -l registry (contains -i -- --registry $words)
    or return
    set -l rest
    set -l skip 0
    for word in $words[3..]
        if test $skip = 1
            set skip 0
        else if contains -- $word --registry --context --color
            set skip 1
        else if not string match -q -- '-*' $word
            set -a rest $word
        end
    end
    set -l file $words[(math $registry + 1)]
    if test $words[2] = schema -o -z "$rest"
        $words[1] schema --names --registry $file 2>/dev/null
    else
        $words[1] schema --names --registry $file $rest[1] 2>/dev/null | string replace -r '$' '='
    end
end
complete -c tool-binding -n '__fish_seen_subcommand_from explain schema' -f -a '(__tool_binding_names)'
