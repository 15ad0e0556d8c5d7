# SPDX-License-Identifier: GPL-3.0-or-later

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
            -ffp-contract=off # colour steps round the same on every machine
            -fno-math-errno # rounding is an instruction, no call
)
find_program(BRINDLEMARK_MOLD mold DOC "A linker that is faster than the usual one")
if(BRINDLEMARK_MOLD)
  target_link_options(brindlemark_options INTERFACE -fuse-ld=mold)
endif()

# What most sources include takes most of their time. It is compiled once, in the lowest room; a release does without, so
# that each file still has to include what it uses. All of <QtWidgets> would be nearly twice as large.
set(BRINDLEMARK_HEADERS
    <QApplication>
    <QCheckBox>
    <QComboBox>
    <QDir>
    <QFile>
    <QKeyEvent>
    <QLabel>
    <QLineEdit>
    <QMenu>
    <QMimeData>
    <QPainter>
    <QPointer>
    <QPushButton>
    <QRegularExpression>
    <QTimer>
    <QToolTip>
    <QVBoxLayout>
    <algorithm>
    <array>
    <functional>
    <memory>
    <optional>
    <vector>)

# brindlemark_library(<folder> LINK <libraries> SOURCES <files>): the static library of one folder.
function(brindlemark_library folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK;SOURCES")
  add_library(brindlemark_${folder} STATIC ${arg_SOURCES})
  target_link_libraries(brindlemark_${folder} PUBLIC brindlemark_options ${arg_LINK})
  if(folder STREQUAL platform)
    target_precompile_headers(brindlemark_platform PRIVATE ${BRINDLEMARK_HEADERS})
  else()
    target_precompile_headers(brindlemark_${folder} REUSE_FROM brindlemark_platform)
  endif()
  # Headers of forms include what is generated from their .ui files.
  target_include_directories(brindlemark_${folder}
                             PUBLIC "${CMAKE_CURRENT_BINARY_DIR}/brindlemark_${folder}_autogen/include")
endfunction()
