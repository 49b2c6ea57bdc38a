# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT

if(TARGET ombrel_gallery_core)
    target_link_libraries(bm_shelf PRIVATE ombrel_gallery_core)
    target_compile_definitions(bm_shelf PRIVATE OMBREL_GALLERY_DIR="${PROJECT_SOURCE_DIR}/gallery")
else()
    message(STATUS "bm_shelf is left out: the gallery is not built")
    set_target_properties(bm_shelf PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
