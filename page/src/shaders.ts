// What the graphics card does for each corner and each pixel. Marks are boxes with round corners whose edges are
// smoothed.
export const MARK_SHADER = `#version 300 es
layout(location = 0) in vec4 place;
layout(location = 1) in vec3 size;
uniform mat3 view;
uniform float scale;
out vec2 at;
flat out vec3 extent;
flat out float cover;
void main() {
  vec2 corner = vec2(float(gl_VertexID & 1), float((gl_VertexID >> 1) & 1)) * 2.0 - 1.0;
  vec2 half_size = size.xy * scale;
  vec2 shown = max(half_size, vec2(0.5));
  cover = clamp(2.0 * half_size.y, 0.35, 1.0) * clamp(2.0 * half_size.x, 0.35, 1.0);
  float radius = min(size.z * scale, min(shown.x, shown.y));
  // The box within the round corners, and how far they are seen beyond it.
  extent = vec3(shown - radius, radius + 0.5);
  at = corner * (shown + 0.75);
  vec2 along = at / scale;
  vec2 point = place.xy + place.zw * along.x + vec2(-place.w, place.z) * along.y;
  gl_Position = vec4((view * vec3(point, 1.0)).xy, 0.0, 1.0);
}`;

export const MARK_COLOR = `#version 300 es
precision mediump float;
uniform vec4 color;
in vec2 at;
flat in vec3 extent;
flat in float cover;
out vec4 shade;
void main() {
  vec2 beyond = max(abs(at) - extent.xy, 0.0);
  shade = color * (clamp(extent.z - length(beyond), 0.0, 1.0) * cover);
}`;

export const AREA_SHADER = `#version 300 es
layout(location = 0) in vec2 place;
uniform mat3 view;
void main() {
  gl_Position = vec4((view * vec3(place, 1.0)).xy, 0.0, 1.0);
}`;

export const AREA_COLOR = `#version 300 es
precision mediump float;
uniform vec4 color;
out vec4 shade;
void main() {
  shade = color;
}`;

// Without smooth edges: lines and points, which cost a part of what marks do.
export const QUICK_SHADER = `#version 300 es
layout(location = 0) in vec4 place;
layout(location = 1) in vec3 size;
uniform mat3 view;
uniform float scale;
uniform float ends;
flat out float cover;
void main() {
  vec2 extent = 2.0 * size.xy * scale;
  float side = max(sqrt(extent.x * extent.y), 1.0);
  cover = ends > 0.0 ? clamp(extent.y, 0.4, 1.0) : clamp(extent.x * extent.y / (side * side), 0.4, 1.0);
  vec2 point = place.xy + place.zw * (size.x * ends * (float(gl_VertexID & 1) * 2.0 - 1.0));
  gl_PointSize = side;
  gl_Position = vec4((view * vec3(point, 1.0)).xy, 0.0, 1.0);
}`;

export const QUICK_COLOR = `#version 300 es
precision mediump float;
uniform vec4 color;
flat in float cover;
out vec4 shade;
void main() {
  shade = color * cover;
}`;
