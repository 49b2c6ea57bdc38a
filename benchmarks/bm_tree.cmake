# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT

target_link_libraries(bm_tree PRIVATE Ombrel::DataCore)
if(TARGET ombreldatacoreplugin)
    add_dependencies(bm_tree ombreldatacoreplugin)
endif()
