# What every target of the tree is built with.
add_library(brindlemark_options INTERFACE)
target_include_directories(brindlemark_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(
  brindlemark_options
  INTERFACE QT_RESTRICTED_CAST_FROM_ASCII # text and bytes never mix by accident
            QT_NO_CAST_FROM_BYTEARRAY QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH)
target_compile_options(
  brindlemark_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Werror
            -ffp-contract=off # colour steps round the same on every machine
            -fno-math-errno # rounding is an instruction, no call
)

# brindlemark_headers(<target>): Qt's headers, which take most of a source's time, are compiled once, in the lowest room.
# A release does without, so that each file still has to include what it uses.
function(brindlemark_headers target)
  if(target STREQUAL brindlemark_platform)
    target_precompile_headers(${target} PRIVATE <QtWidgets>)
  else()
    target_precompile_headers(${target} REUSE_FROM brindlemark_platform)
  endif()
endfunction()

# brindlemark_library(<folder> LINK <libraries> SOURCES <files>): the static library of one folder.
function(brindlemark_library folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK;SOURCES")
  add_library(brindlemark_${folder} STATIC ${arg_SOURCES})
  target_link_libraries(brindlemark_${folder} PUBLIC brindlemark_options ${arg_LINK})
  brindlemark_headers(brindlemark_${folder})
  # Headers of forms include what is generated from their .ui files.
  target_include_directories(brindlemark_${folder}
                             PUBLIC "${CMAKE_CURRENT_BINARY_DIR}/brindlemark_${folder}_autogen/include")
endfunction()
