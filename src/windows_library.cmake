# Vellum.dll: what it exports, and what Windows shows of it.

# Here the compiler cannot mark what is exported: g++ leaves out most of the inline members of a class that is declared
# dllexport. So the linker is given the names, in the form of a module definition. It refuses a name that is not there.
set(exported_symbols ${PROJECT_SOURCE_DIR}/tests/package/exported_symbols.txt)
set(module_definition ${CMAKE_CURRENT_BINARY_DIR}/Vellum.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${exported_symbols})
file(STRINGS ${exported_symbols} exports)
# Debug texts go to the system, and no host replaces that.
list(FILTER exports EXCLUDE REGEX "^VellumDebugOutput ")
# Each line is the mangled name and then the readable one.
list(TRANSFORM exports REPLACE "^([^ ]+) .*" "    \\1")
# Vtables and type information. Without the word hosts would be given functions of these names, which jump into them.
list(TRANSFORM exports APPEND " DATA" REGEX "^ *_ZT")
list(JOIN exports "\n" exports)
file(CONFIGURE OUTPUT ${module_definition} CONTENT "EXPORTS\n@exports@\n" @ONLY)

enable_language(RC)
configure_file(version.rc.in version.rc @ONLY)

target_sources(Vellum PRIVATE ${module_definition} ${CMAKE_CURRENT_BINARY_DIR}/version.rc)
# Vellum.dll and libVellum.dll.a, and not libVellum.dll.
set_target_properties(Vellum PROPERTIES PREFIX "" LINK_DEPENDS ${module_definition})
