# Completion of plxclip in fish. The program itself knows its options and the clips of a folder, and is asked for
# them.

# The word up to the cursor without its quoting, also if a quotation mark is still open.
function __plxclip_current
    set -l typed (commandline --current-token --cut-at-cursor)
    for ending in '' "'" '"'
        if string unescape -- "$typed$ending"
            return
        end
    end
    echo -- "$typed"
end

function __plxclip_complete
    set -l words (commandline --tokenize --current-process --cut-at-cursor)
    set -e words[1]
    set -l current (__plxclip_current)
    set -l option (string match --regex -- '^--[^=]*=' "$current")
    set -l value (string replace --regex -- '^--[^=]*=' '' "$current")
    set -l answer (command plxclip __complete "=$current" $words 2>/dev/null)
    switch "$answer[1]"
        case files
            for path in (__fish_complete_path "$value")
                printf '%s\n' "$option$path"
            end
        case folders
            for path in (__fish_complete_directories "$value" '')
                printf '%s\n' "$option$path"
            end
        case words
            set -e answer[1]
            printf '%s\n' $answer
    end
end

complete --command plxclip --no-files --arguments '(__plxclip_complete)'
