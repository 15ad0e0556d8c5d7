# SPDX-License-Identifier: GPL-3.0-or-later

# cmake -DFROM=<folder> -DTO=<folder> -DSETTINGS=<names> -DPROGRAM_FILES=<names> -P stage.cmake
# Puts the data files beside the program: settings only where there are none yet, program files always.
set(permissions FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
foreach(name IN LISTS SETTINGS)
  if(NOT EXISTS "${TO}/${name}")
    file(COPY "${FROM}/${name}" DESTINATION "${TO}" ${permissions})
  endif()
endforeach()
foreach(name IN LISTS PROGRAM_FILES)
  file(COPY "${FROM}/${name}" DESTINATION "${TO}" ${permissions})
endforeach()
