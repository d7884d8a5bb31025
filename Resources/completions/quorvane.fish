# Completion of quorvane for fish.

function __quorvane_pictures
    path filter --type file ~/Pictures/Quorvane/*.{png,jpg,jpeg,webp} 2>/dev/null | path basename
end

set --local commands generate upscale set status history albums favorite delete settings key auto autostart model cancel quit

complete --command quorvane --no-files
complete --command quorvane --condition "not __fish_seen_subcommand_from $commands" --long-option hidden --description "Start without a window"
complete --command quorvane --condition "not __fish_seen_subcommand_from $commands" --long-option action --exclusive --arguments "generate toggle-auto settings quit" --description "Do what an action of the desktop entry does"
complete --command quorvane --condition "not __fish_seen_subcommand_from $commands" --long-option help --description "Show the commands"
complete --command quorvane --condition "not __fish_seen_subcommand_from $commands" --long-option version --description "Show the version"
complete --command quorvane --long-option json --description "Print one JSON value"

complete --command quorvane --condition __fish_use_subcommand --arguments generate --description "Make a picture and set it as the wallpaper"
complete --command quorvane --condition __fish_use_subcommand --arguments upscale --description "Make a 4K copy of a picture and set it"
complete --command quorvane --condition __fish_use_subcommand --arguments set --description "Set a picture as the wallpaper of every screen"
complete --command quorvane --condition __fish_use_subcommand --arguments status --description "Show provider, settings, schedule, wallpaper and screens"
complete --command quorvane --condition __fish_use_subcommand --arguments history --description "List the pictures, newest first"
complete --command quorvane --condition __fish_use_subcommand --arguments albums --description "List the pictures by prompt"
complete --command quorvane --condition __fish_use_subcommand --arguments favorite --description "Mark a picture as a favourite, or no longer"
complete --command quorvane --condition __fish_use_subcommand --arguments delete --description "Delete a picture and its 4K partner for good"
complete --command quorvane --condition __fish_use_subcommand --arguments settings --description "Show or change settings"
complete --command quorvane --condition __fish_use_subcommand --arguments key --description "List, store or delete API keys"
complete --command quorvane --condition __fish_use_subcommand --arguments auto --description "Switch automatic mode"
complete --command quorvane --condition __fish_use_subcommand --arguments autostart --description "Start with the session, or no longer"
complete --command quorvane --condition __fish_use_subcommand --arguments model --description "Show or replace the super-resolution network"
complete --command quorvane --condition __fish_use_subcommand --arguments cancel --description "End what makes a picture"
complete --command quorvane --condition __fish_use_subcommand --arguments quit --description "End the running application"

complete --command quorvane --condition "__fish_seen_subcommand_from generate" --long-option prompt --exclusive --description "Set the prompt first"
complete --command quorvane --condition "__fish_seen_subcommand_from upscale set; and not __fish_seen_subcommand_from settings key" --force-files --arguments "(__quorvane_pictures)"
complete --command quorvane --condition "__fish_seen_subcommand_from favorite; or begin; __fish_seen_subcommand_from delete; and not __fish_seen_subcommand_from key; end" --arguments "(__quorvane_pictures)"
complete --command quorvane --condition "__fish_seen_subcommand_from settings" --long-option unset --description "Remove the setting"
complete --command quorvane --condition "__fish_prev_arg_in settings --unset" --arguments "lastPrompt fourKEnabled nsfwEnabled providerOverride autoEnabled intervalMinutes upscaleMethod currentWallpaperPath selectedModel_gemini selectedModel_grok selectedModel_openai"
complete --command quorvane --condition "__fish_seen_subcommand_from settings; and __fish_prev_arg_in fourKEnabled nsfwEnabled autoEnabled" --arguments "true false"
complete --command quorvane --condition "__fish_seen_subcommand_from settings; and __fish_prev_arg_in providerOverride" --arguments "auto gemini grok openai"
complete --command quorvane --condition "__fish_seen_subcommand_from settings; and __fish_prev_arg_in upscaleMethod" --arguments "gemini local"
complete --command quorvane --condition "__fish_prev_arg_in key" --arguments "list set delete"
complete --command quorvane --condition "__fish_seen_subcommand_from key; and __fish_prev_arg_in set delete" --arguments "gemini grok openai"
complete --command quorvane --condition "__fish_prev_arg_in auto autostart" --arguments "on off"
complete --command quorvane --condition "__fish_prev_arg_in model" --arguments install
complete --command quorvane --condition "__fish_seen_subcommand_from model; and __fish_prev_arg_in install" --force-files
