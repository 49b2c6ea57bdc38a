# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT

target_link_libraries(bm_qr_encoder PRIVATE ombrel_qr)
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
