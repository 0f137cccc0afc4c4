# What the library is linked with, in vellum_dependencies. Its public headers include nothing of it.

find_package(Freetype REQUIRED GLOBAL)
set(vellum_dependencies Freetype::Freetype)
if(WIN32)
    # Names the font families. What the registry lists for them takes advapi32, which is linked anyway.
    list(APPEND vellum_dependencies gdi32)
else()
    find_package(Fontconfig REQUIRED GLOBAL)
    list(APPEND vellum_dependencies Fontconfig::Fontconfig)
endif()
