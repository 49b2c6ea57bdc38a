// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// The texture has a texel a module: red is its lightness, alpha is 0 in the border around the code.
// With a radius, a fragment mixes in what a circle around it shows. The weights add up to 1.075:
// modules keep their full tone up to close to their edges.

#define SAMPLES        8
#define TWOPI          6.2831853071795864
#define CENTER_WEIGHT .4
const lowp float sect = TWOPI / float(SAMPLES + 1);
const lowp float weight = (1.0 - float(CENTER_WEIGHT)) / float(SAMPLES);
uniform lowp float qt_Opacity;
uniform lowp vec4  dark;
uniform lowp vec4  light;
uniform sampler2D  qrTex;
uniform lowp float radius;
varying lowp vec2  tex;
void main() {
    lowp vec4 frag = texture2D(qrTex, tex);
    if (radius > 0.0) {
       lowp float col = frag.r * CENTER_WEIGHT;
       lowp float alpha = frag.a * CENTER_WEIGHT;
       for (lowp int i = 0; i <= SAMPLES; ++i) {
           frag = texture2D(qrTex,
               tex + vec2(cos(float(i) * sect) * radius,
               sin(float(i) * sect) * radius));
           col += frag.r * weight;
           alpha += frag.a * weight;
       }
       lowp vec4 color = mix(dark, light, col);
       gl_FragColor = vec4(color.rgb, alpha) * qt_Opacity;
   } else {
       gl_FragColor = mix(dark, light, frag.r) * qt_Opacity;
   }
}
