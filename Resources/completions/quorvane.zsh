#compdef quorvane
# Completion of quorvane for zsh.

_quorvane_pictures() {
    local -a pictures
    pictures=("$HOME"/Pictures/Quorvane/*.(#i)(png|jpg|jpeg|webp)(N:t))
    compadd -a pictures
}

_quorvane_commands() {
    local -a commands=(
        'generate:make a picture and set it as the wallpaper'
        'upscale:make a 4K copy of a picture and set it'
        'set:set a picture as the wallpaper of every screen'
        'status:show provider, settings, schedule, wallpaper and screens'
        'history:list the pictures, newest first'
        'albums:list the pictures by prompt'
        'favorite:mark a picture as a favourite, or no longer'
        'delete:delete a picture and its 4K partner for good'
        'settings:show or change settings'
        'key:list, store or delete API keys'
        'auto:switch automatic mode'
        'autostart:start with the session, or no longer'
        'model:show or replace the super-resolution network'
        'cancel:end what makes a picture'
        'quit:end the running application'
    )
    _describe -t commands command commands
}

_quorvane_setting_keys() {
    _values setting lastPrompt fourKEnabled nsfwEnabled providerOverride autoEnabled intervalMinutes upscaleMethod \
        currentWallpaperPath selectedModel_gemini selectedModel_grok selectedModel_openai
}

_quorvane_setting_value() {
    case $words[CURRENT-1] in
        fourKEnabled | nsfwEnabled | autoEnabled) _values value true false ;;
        providerOverride) _values value auto gemini grok openai ;;
        upscaleMethod) _values value gemini local ;;
    esac
}

_quorvane_arguments() {
    local json='--json[print one JSON value]'
    case $words[1] in
        generate) _arguments $json '--prompt[set the prompt first]:prompt:' ;;
        upscale | set) _arguments $json '1:picture:{ _quorvane_pictures; _files }' ;;
        favorite | delete) _arguments $json '1:picture:_quorvane_pictures' ;;
        settings)
            _arguments $json '--unset[remove the setting]' '1:setting:_quorvane_setting_keys' '2:value:_quorvane_setting_value'
            ;;
        key) _arguments $json '1:action:(list set delete)' '2:service:(gemini grok openai)' ;;
        auto | autostart) _arguments $json '1:switch:(on off)' ;;
        model) _arguments $json '1:action:(install)' '2:network:_files -g "*.onnx"' ;;
        *) _arguments $json ;;
    esac
}

_quorvane() {
    local context state line
    _arguments -C \
        '(- *)--help[show the commands]' \
        '(- *)--version[show the version]' \
        '--hidden[start without a window]' \
        '--action[do what an action of the desktop entry does]:action:(generate toggle-auto settings quit)' \
        '1:command:_quorvane_commands' \
        '*::argument:_quorvane_arguments'
}

_quorvane "$@"
