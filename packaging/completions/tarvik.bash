# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Completion of tarvik(1) for bash.

_tarvik()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local words=
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        words="hold acquire release release-all status why unhook hook help --help --version"
    else
        case ${COMP_WORDS[1]}:$previous in
        hook:--tool) words="claude codex gemini qwen droid copilot" ;;
        acquire:--session | acquire:--tool | acquire:--ttl | acquire:--reason | release:--session) return ;;
        acquire:*) words="--session --tool --ttl --reason --help" ;;
        release:*) words="--session --help" ;;
        status:*) words="--json --follow --help" ;;
        why:*) words="--json --help" ;;
        unhook:*) words="--help" ;;
        hook:*) words="--tool" ;;
        hold:*)
            _tarvik_hold "$current"
            return
            ;;
        esac
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

# Completes the options of hold, then the command that it is to run with that command's own completion.
_tarvik_hold()
{
    local index=2
    while [[ ${COMP_WORDS[index]} == --reason ]] && ((index < COMP_CWORD)); do
        ((index += 2))
    done
    if ((index > COMP_CWORD)); then
        return
    fi
    if [[ ${COMP_WORDS[index]} == -- ]] && ((index < COMP_CWORD)); then
        ((index += 1))
    fi
    if [[ $1 == -* ]] && ((index == COMP_CWORD)); then
        mapfile -t COMPREPLY < <(compgen -W "--reason --help --" -- "$1")
    elif declare -F _command_offset >/dev/null; then
        _command_offset "$index"
    elif ((index == COMP_CWORD)); then
        mapfile -t COMPREPLY < <(compgen -c -- "$1")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$1")
    fi
}

complete -F _tarvik tarvik
