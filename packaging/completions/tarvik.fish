# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
# Completion of tarvik(1) for fish.

complete -c tarvik -f
complete -c tarvik -n __fish_use_subcommand -a hold -d 'Keep awake while a command runs'
complete -c tarvik -n __fish_use_subcommand -a acquire -d 'Take or renew a lease'
complete -c tarvik -n __fish_use_subcommand -a release -d 'Give a lease back'
complete -c tarvik -n __fish_use_subcommand -a release-all -d 'Give all leases back'
complete -c tarvik -n __fish_use_subcommand -a status -d 'Say what Tarvik is doing'
complete -c tarvik -n __fish_use_subcommand -a why -d 'Say why this computer is awake'
complete -c tarvik -n __fish_use_subcommand -a unhook -d 'Take Tarvik\'s entries out of the agents\' configuration'
complete -c tarvik -n __fish_use_subcommand -a hook -d 'Tell the event of a coding agent'
complete -c tarvik -n __fish_use_subcommand -a help -d 'Print a summary'
complete -c tarvik -n __fish_use_subcommand -l version -d 'Print the version'
complete -c tarvik -n __fish_use_subcommand -l help -d 'Print a summary'
complete -c tarvik -n '__fish_seen_subcommand_from acquire release' -l session -x -d 'Key of the lease'
complete -c tarvik -n '__fish_seen_subcommand_from acquire' -l tool -x -d 'What is at work'
complete -c tarvik -n '__fish_seen_subcommand_from acquire' -l ttl -x -d 'How long it lasts at most, in seconds'
complete -c tarvik -n '__fish_seen_subcommand_from acquire hold' -l reason -x -d 'Why'
complete -c tarvik -n '__fish_seen_subcommand_from status why' -l json -d 'Print JSON'
complete -c tarvik -n '__fish_seen_subcommand_from status' -l follow -d 'Print a line at each change'
complete -c tarvik -n '__fish_seen_subcommand_from hook' -l tool -x -a 'claude codex gemini qwen droid copilot' -d 'The agent'
complete -c tarvik -n '__fish_seen_subcommand_from hold' -x -a '(__fish_complete_subcommand --fcs-skip=2)'
