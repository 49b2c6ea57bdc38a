# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT

# The encoder as whoever takes over its folder builds it, whatever the preset optimises with; the
# peers' packages are built with -O2, too.
get_target_property(encoder_sources ombrel_qr SOURCES)
get_target_property(encoder_definitions ombrel_qr INTERFACE_COMPILE_DEFINITIONS)
list(TRANSFORM encoder_sources PREPEND "${PROJECT_SOURCE_DIR}/qr/")
add_library(ombrel_qr_plain STATIC ${encoder_sources})
set_target_properties(ombrel_qr_plain PROPERTIES AUTOMOC OFF)
target_include_directories(ombrel_qr_plain PUBLIC "${PROJECT_SOURCE_DIR}")
target_compile_options(ombrel_qr_plain PRIVATE -O2)
if(encoder_definitions)
    target_compile_definitions(ombrel_qr_plain PUBLIC ${encoder_definitions})
endif()
target_link_libraries(bm_qr_encoder PRIVATE ombrel_qr_plain)
find_path(QRENCODE_INCLUDE qrencode.h)
find_library(QRENCODE_LIBRARY qrencode)
find_path(QRCODEGEN_INCLUDE qrcodegen/qrcodegen.hpp)
find_library(QRCODEGEN_LIBRARY qrcodegencpp)
if(QRENCODE_INCLUDE AND QRENCODE_LIBRARY)
    target_link_libraries(bm_qr_encoder PRIVATE "${QRENCODE_LIBRARY}")
    target_compile_definitions(bm_qr_encoder PRIVATE OMBREL_HAS_QRENCODE)
endif()
if(QRCODEGEN_INCLUDE AND QRCODEGEN_LIBRARY)
    target_link_libraries(bm_qr_encoder PRIVATE "${QRCODEGEN_LIBRARY}")
    target_compile_definitions(bm_qr_encoder PRIVATE OMBREL_HAS_QRCODEGEN)
endif()
