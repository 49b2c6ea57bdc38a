// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

uniform lowp float qt_Opacity;
uniform lowp vec4  om_Color;
void main() {
    lowp float len = gl_FragCoord.x + gl_FragCoord.y;
    lowp float segment = mod(len, 10.0);
    if (segment > 6.0)
        discard;
    gl_FragColor = om_Color * qt_Opacity;
}
