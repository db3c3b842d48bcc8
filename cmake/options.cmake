# Compiler and linker settings that every target of ours shares. The floor libraries and programs link velquin_options.
add_library(velquin_options INTERFACE)
target_include_directories(velquin_options INTERFACE ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR}/generated)
target_compile_options(velquin_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

if(WIN32)
  # Windows 10 is the oldest system that the program supports.
  target_compile_definitions(velquin_options INTERFACE
    UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00 WINVER=0x0A00)
  # Nothing here asks for types at run time, and with C++23 the comparison of type_info that std::make_shared brings is
  # defined both in our objects and in the cross compiler's libstdc++, which its linker refuses.
  target_compile_options(velquin_options INTERFACE
    -ffunction-sections -fdata-sections -fstack-protector-strong $<$<COMPILE_LANGUAGE:CXX>:-fno-rtti>)
  # Reproducible: the same sources give the same bytes, so no time stamp.
  target_link_options(velquin_options INTERFACE -static -Wl,--gc-sections -Wl,--no-insert-timestamp)
  # For programs with a wide entry (wmain, wWinMain).
  add_library(velquin_wide_entry INTERFACE)
  target_link_options(velquin_wide_entry INTERFACE -municode)
endif()

if(VELQUIN_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_options(${sanitizers} -D_GLIBCXX_ASSERTIONS)
  add_link_options(${sanitizers})
endif()
if(VELQUIN_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

# velquin_library(NAME PORTABLE sources... WIN32 sources... LINK libraries...): one floor's library, the Windows sources
# only in the Windows build.
function(velquin_library name)
  cmake_parse_arguments(arg "" "" "PORTABLE;WIN32;LINK" ${ARGN})
  set(sources ${arg_PORTABLE})
  if(WIN32)
    list(APPEND sources ${arg_WIN32})
  endif()
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC velquin_options ${arg_LINK})
endfunction()
