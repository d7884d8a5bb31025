# The catalogues in Resources/translations, packed into the program. The target update_translations takes new texts over
# from the sources; what it adds is then to be translated (the test Translations tells what is missing).

set(quorvane_languages de en es fr ja zh_CN)

# quorvane_add_translations(TARGET): the catalogues as :/translations/quorvane_LANGUAGE.qm.
function(quorvane_add_translations target)
    foreach(language ${quorvane_languages})
        set(catalogue ${PROJECT_SOURCE_DIR}/Resources/translations/quorvane_${language}.ts)
        set(packed ${CMAKE_CURRENT_BINARY_DIR}/quorvane_${language}.qm)
        add_custom_command(OUTPUT ${packed} DEPENDS ${catalogue} VERBATIM
                           COMMAND Qt6::lrelease -silent -nounfinished ${catalogue} -qm ${packed})
        list(APPEND files ${packed})
    endforeach()
    qt_add_resources(${target} translations PREFIX /translations BASE ${CMAKE_CURRENT_BINARY_DIR} FILES ${files})
endfunction()

add_custom_target(update_translations
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/update-translations
    COMMENT "Taking texts over into the catalogues" VERBATIM)
