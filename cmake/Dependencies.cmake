# What the library is linked with, in vellum_dependencies. Its public headers include nothing of it.

find_package(Freetype REQUIRED GLOBAL)
set(vellum_dependencies Freetype::Freetype)
if(NOT WIN32)
    find_package(Fontconfig REQUIRED GLOBAL)
    list(APPEND vellum_dependencies Fontconfig::Fontconfig)
endif()
