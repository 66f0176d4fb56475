include_guard(GLOBAL)

# Makes the library `name` of ospra_library a QML module as well. URI is the name of the import; FILES, SINGLETONS and
# INTERNAL are QML files (INTERNAL ones cannot be named outside), RESOURCES lie below the module's folder, IMPORTS names
# the modules that its QML files and C++ types build on.
# The module lies in the program at :/qt/qml, so the engine wants the import path "qrc:/qt/qml".
function(ospra_qml_module name)
    cmake_parse_arguments(ARG "" "URI" "FILES;SINGLETONS;INTERNAL;RESOURCES;IMPORTS" ${ARGN})
    if(ARG_SINGLETONS)
        set_source_files_properties(${ARG_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    endif()
    if(ARG_INTERNAL)
        set_source_files_properties(${ARG_INTERNAL} PROPERTIES QT_QML_INTERNAL_TYPE TRUE)
    endif()
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    string(REPLACE "." "/" folder "${ARG_URI}")
    qt_add_qml_module(${name}
        URI ${ARG_URI}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/qml/${folder}"
        DEPENDENCIES QtQuick ${ARG_IMPORTS}
        QML_FILES ${ARG_FILES} ${ARG_SINGLETONS} ${ARG_INTERNAL}
        RESOURCES ${ARG_RESOURCES})
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    # Whoever links the library gets the plugin that registers the module.
    target_link_libraries(${name} INTERFACE ${name}plugin)
    # What Qt's tools generate does not hold to our warnings.
    get_target_property(sources ${name} SOURCES)
    foreach(source IN LISTS sources)
        if(source MATCHES "/qmlcache/|_qmltyperegistrations\\.cpp$")
            set_source_files_properties("${source}" PROPERTIES COMPILE_OPTIONS -w)
        endif()
    endforeach()
endfunction()
