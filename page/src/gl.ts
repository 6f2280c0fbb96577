// Draws batches with WebGL 2. Marks are boxes with round corners whose edges are smoothed by the shader.
import Flatbush from 'flatbush';
import { addBox, addPoint, Box, emptyBox, isEmpty } from './geometry.js';
import { Batch, MARK_SIZE } from './shapes.js';

export interface Rgba {
  r: number;
  g: number;
  b: number;
  a: number;
}

// From millimetres on the board to pixels of the canvas: x' = a x + c y + e, y' = b x + d y + f.
export interface Transform {
  a: number;
  b: number;
  c: number;
  d: number;
  e: number;
  f: number;
  scale: number;
}

export interface Viewport {
  x: number;
  y: number;
  width: number;
  height: number;
}

interface Chunk {
  first: number;
  count: number;
  // The largest of what is in it, and the widest, in millimetres.
  size: number;
  width: number;
}

interface Chunks {
  array: WebGLVertexArrayObject;
  // The same marks as thin lines and as points, for pictures in motion.
  lines: WebGLVertexArrayObject | null;
  points: WebGLVertexArrayObject | null;
  buffer: WebGLBuffer;
  chunks: Chunk[];
  index: Flatbush;
}

export interface Drawable {
  marks: Chunks | null;
  triangles: Chunks | null;
}

const MARK_SHADER = `#version 300 es
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

const MARK_COLOR = `#version 300 es
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

const AREA_SHADER = `#version 300 es
layout(location = 0) in vec2 place;
uniform mat3 view;
void main() {
  gl_Position = vec4((view * vec3(place, 1.0)).xy, 0.0, 1.0);
}`;

const AREA_COLOR = `#version 300 es
precision mediump float;
uniform vec4 color;
out vec4 shade;
void main() {
  shade = color;
}`;

// Without smooth edges: lines and points, which cost a part of what marks do.
const QUICK_SHADER = `#version 300 es
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

const QUICK_COLOR = `#version 300 es
precision mediump float;
uniform vec4 color;
flat in float cover;
out vec4 shade;
void main() {
  shade = color * cover;
}`;

const CHUNK = 64;
// What is smaller than this part of a pixel is left out.
const SMALLEST = 0.3;
// In motion, on a computer that is slow at it: what is smaller than so many pixels is drawn as a point, what is thinner
// as a line, and what is smaller than these is left out, level by level.
const POINT = 5;
const THIN = 2.4;
const QUICK = [{ point: 1.5, line: 2 }, { point: 2, line: 4 }, { point: 2.6, line: 6 }, { point: 3.2, line: 9 }];
export const MOST_QUICK = QUICK.length;
// From this level on a picture has half of the pixels each way.
const COARSE = 3;

// Whether marks of this size and width in pixels are drawn.
type Wanted = (size: number, width: number) => boolean;

interface Program {
  program: WebGLProgram;
  view: WebGLUniformLocation | null;
  scale: WebGLUniformLocation | null;
  color: WebGLUniformLocation | null;
  ends: WebGLUniformLocation | null;
}

export class Graphics {
  // How much is left out of a picture; 0 for nothing.
  quick = 0;
  private readonly gl: WebGL2RenderingContext;
  private readonly markProgram: Program;
  private readonly areaProgram: Program;
  private readonly quickProgram: Program;
  private readonly corners: WebGLBuffer;
  private readonly lineEnds: WebGLBuffer;
  private cornerCount = 0;
  private current: Program | null = null;
  private transform: Transform = { a: 1, b: 0, c: 0, d: 1, e: 0, f: 0, scale: 1 };
  private viewport: Viewport = { x: 0, y: 0, width: 1, height: 1 };
  private view = new Float32Array(9);
  private serial = 0;
  private readonly told = new Map<Program, number>();

  // Whether the processor draws, and no graphics card.
  readonly isSoftware: boolean;

  constructor(readonly canvas: HTMLCanvasElement) {
    const gl = canvas.getContext('webgl2', {
      alpha: false, antialias: false, depth: false, stencil: false, powerPreference: 'high-performance',
    });
    if (!gl) {
      throw new Error('no WebGL 2');
    }
    this.gl = gl;
    this.markProgram = this.program(MARK_SHADER, MARK_COLOR);
    this.areaProgram = this.program(AREA_SHADER, AREA_COLOR);
    this.quickProgram = this.program(QUICK_SHADER, QUICK_COLOR);
    this.corners = gl.createBuffer()!;
    this.lineEnds = gl.createBuffer()!;
    const names = gl.getExtension('WEBGL_debug_renderer_info');
    const name = names ? String(gl.getParameter(names.UNMASKED_RENDERER_WEBGL)) : '';
    this.isSoftware = /swiftshader|llvmpipe|softpipe|software|basic render/i.test(name);
    gl.enable(gl.BLEND);
    gl.blendFunc(gl.ONE, gl.ONE_MINUS_SRC_ALPHA);
    gl.enable(gl.SCISSOR_TEST);
  }

  // Begins the picture of one side. The viewport is in pixels of the canvas, from its upper left corner.
  begin(viewport: Viewport, transform: Transform, background: Rgba): void {
    const gl = this.gl;
    const bottom = this.canvas.height - viewport.y - viewport.height;
    gl.viewport(viewport.x, bottom, viewport.width, viewport.height);
    gl.scissor(viewport.x, bottom, viewport.width, viewport.height);
    gl.clearColor(background.r, background.g, background.b, 1);
    gl.clear(gl.COLOR_BUFFER_BIT);
    this.viewport = viewport;
    this.transform = transform;
    const x = 2 / viewport.width;
    const y = -2 / viewport.height;
    const t = transform;
    this.view = new Float32Array([t.a * x, t.b * y, 0, t.c * x, t.d * y, 0, t.e * x - 1, t.f * y + 1, 1]);
    this.serial += 1;
  }

  // Fills a box of the board, which costs next to nothing where its edges are those of the picture.
  fillBox(box: Box, color: Rgba): boolean {
    const { a, b, c, d, e, f } = this.transform;
    const isUpright = (b === 0 && c === 0) || (a === 0 && d === 0);
    if (!isUpright || isEmpty(box)) {
      return false;
    }
    const { gl, viewport } = this;
    const xs = [a * box.minX + c * box.minY + e, a * box.maxX + c * box.maxY + e].sort((one, two) => one - two);
    const ys = [b * box.minX + d * box.minY + f, b * box.maxX + d * box.maxY + f].sort((one, two) => one - two);
    const within = (pixel: number, most: number): number => Math.round(Math.min(Math.max(pixel, 0), most));
    const [left, right] = xs.map((x) => within(x, viewport.width)) as [number, number];
    const [top, low] = ys.map((y) => within(y, viewport.height)) as [number, number];
    const bottom = this.canvas.height - viewport.y - viewport.height;
    gl.scissor(viewport.x + left, bottom + viewport.height - low, right - left, low - top);
    gl.clearColor(color.r, color.g, color.b, 1);
    gl.clear(gl.COLOR_BUFFER_BIT);
    gl.scissor(viewport.x, bottom, viewport.width, viewport.height);
    return true;
  }

  clear(background: Rgba): void {
    const gl = this.gl;
    gl.scissor(0, 0, this.canvas.width, this.canvas.height);
    gl.clearColor(background.r, background.g, background.b, 1);
    gl.clear(gl.COLOR_BUFFER_BIT);
  }

  // How much of the full number of pixels a picture has each way.
  get share(): number {
    return this.quick >= COARSE ? 0.5 : 1;
  }

  upload(batch: Batch): Drawable {
    return { marks: this.uploadMarks(batch.marks), triangles: this.uploadTriangles(batch.triangles) };
  }

  release(drawable: Drawable): void {
    for (const chunks of [drawable.marks, drawable.triangles]) {
      if (chunks) {
        this.gl.deleteBuffer(chunks.buffer);
        [chunks.array, chunks.lines, chunks.points].forEach((array) => this.gl.deleteVertexArray(array));
      }
    }
  }

  draw(drawable: Drawable, color: Rgba): void {
    const { gl } = this;
    const { triangles, marks } = drawable;
    if (triangles) {
      this.use(this.areaProgram, color);
      gl.bindVertexArray(triangles.array);
      if (color.a === 1) {
        gl.disable(gl.BLEND);
      }
      this.eachRun(triangles, () => true,
        (first, count) => gl.drawArrays(gl.TRIANGLES, first * 3, count * 3));
      gl.enable(gl.BLEND);
    }
    const quick = QUICK[this.quick - 1];
    if (marks && quick) {
      this.drawQuick(marks, color, quick);
    } else if (marks) {
      this.drawMarks(marks, color, (size) => size >= SMALLEST);
    }
    gl.bindVertexArray(null);
  }

  private drawMarks(marks: Chunks, color: Rgba, isWanted: Wanted): void {
    const { gl } = this;
    this.use(this.markProgram, color);
    gl.bindVertexArray(marks.array);
    this.eachRun(marks, isWanted,
      (first, count) => gl.drawElements(gl.TRIANGLES, count * 6, gl.UNSIGNED_INT, first * 24));
  }

  private drawQuick(marks: Chunks, color: Rgba, least: { point: number; line: number }): void {
    const { gl } = this;
    this.use(this.quickProgram, color);
    gl.uniform1f(this.quickProgram.ends, 0);
    gl.bindVertexArray(marks.points);
    this.eachRun(marks, (size, width) => size < POINT && size >= (width < size / 3 ? least.line : least.point),
      (first, count) => gl.drawArrays(gl.POINTS, first, count));
    gl.uniform1f(this.quickProgram.ends, 1);
    gl.bindVertexArray(marks.lines);
    this.eachRun(marks, (size, width) => size >= POINT && size >= least.line && width < THIN,
      (first, count) => gl.drawElements(gl.LINES, count * 2, gl.UNSIGNED_INT, first * 8));
    this.drawMarks(marks, color, (size, width) => size >= POINT && width >= THIN);
  }

  // Lays a colour over all that is drawn so far.
  veil(color: Rgba): void {
    const box = this.visible();
    const batch = new Batch();
    batch.triangles.push(box.minX, box.minY, box.maxX, box.minY, box.maxX, box.maxY,
      box.minX, box.minY, box.maxX, box.maxY, box.minX, box.maxY);
    const drawable = this.upload(batch);
    this.draw(drawable, color);
    this.release(drawable);
  }

  // The part of the board that can be seen.
  visible(): Box {
    const { a, b, c, d, e, f } = this.transform;
    const determinant = a * d - b * c;
    const box = { minX: Infinity, minY: Infinity, maxX: -Infinity, maxY: -Infinity };
    for (const [px, py] of [[0, 0], [1, 0], [0, 1], [1, 1]] as const) {
      const x = px * this.viewport.width - e;
      const y = py * this.viewport.height - f;
      const boardX = (d * x - c * y) / determinant;
      const boardY = (a * y - b * x) / determinant;
      box.minX = Math.min(box.minX, boardX);
      box.minY = Math.min(box.minY, boardY);
      box.maxX = Math.max(box.maxX, boardX);
      box.maxY = Math.max(box.maxY, boardY);
    }
    return box;
  }

  private use(program: Program, color: Rgba): void {
    const gl = this.gl;
    if (this.current !== program) {
      gl.useProgram(program.program);
      this.current = program;
    }
    if (this.told.get(program) !== this.serial) {
      gl.uniformMatrix3fv(program.view, false, this.view);
      gl.uniform1f(program.scale, this.transform.scale);
      this.told.set(program, this.serial);
    }
    gl.uniform4f(program.color, color.r * color.a, color.g * color.a, color.b * color.a, color.a);
  }

  // Runs of chunks that can be seen.
  private eachRun(chunks: Chunks, isWanted: Wanted, draw: (first: number, count: number) => void): void {
    const box = this.visible();
    const { scale } = this.transform;
    const seen = chunks.index.search(box.minX, box.minY, box.maxX, box.maxY).sort((a, b) => a - b);
    let first = 0;
    let count = 0;
    for (const place of seen) {
      const chunk = chunks.chunks[place]!;
      if (!isWanted(chunk.size * scale, chunk.width * scale)) {
        continue;
      }
      if (chunk.first !== first + count) {
        if (count > 0) {
          draw(first, count);
        }
        first = chunk.first;
        count = 0;
      }
      count += chunk.count;
    }
    if (count > 0) {
      draw(first, count);
    }
  }

  private uploadMarks(marks: number[]): Chunks | null {
    const count = marks.length / MARK_SIZE;
    if (count === 0) {
      return null;
    }
    const order = orderOf(marks, count);
    const vertices = new Float32Array(count * 4 * MARK_SIZE);
    let at = 0;
    for (const mark of order) {
      for (let corner = 0; corner < 4; ++corner) {
        for (let i = 0; i < MARK_SIZE; ++i) {
          vertices[at++] = marks[mark * MARK_SIZE + i]!;
        }
      }
    }
    const chunks = chunksOf(count, (place) => classOf(marks, order[place]!), (place) => {
      const mark = order[place]! * MARK_SIZE;
      const reach = Math.hypot(marks[mark + 4]!, marks[mark + 5]!);
      const x = marks[mark]!;
      const y = marks[mark + 1]!;
      return { box: { minX: x - reach, minY: y - reach, maxX: x + reach, maxY: y + reach }, size: 2 * reach,
        width: 2 * Math.min(marks[mark + 4]!, marks[mark + 5]!) };
    });
    const buffer = this.buffer(vertices);
    this.provideCorners(count);
    const stride = MARK_SIZE * 4;
    return {
      buffer, array: this.markArray(buffer, stride, this.corners), lines: this.markArray(buffer, stride, this.lineEnds),
      points: this.markArray(buffer, 4 * stride, null), ...chunks,
    };
  }

  private markArray(buffer: WebGLBuffer, stride: number, indices: WebGLBuffer | null): WebGLVertexArrayObject {
    const gl = this.gl;
    const array = gl.createVertexArray();
    gl.bindVertexArray(array);
    gl.bindBuffer(gl.ARRAY_BUFFER, buffer);
    gl.enableVertexAttribArray(0);
    gl.vertexAttribPointer(0, 4, gl.FLOAT, false, stride, 0);
    gl.enableVertexAttribArray(1);
    gl.vertexAttribPointer(1, 3, gl.FLOAT, false, stride, 16);
    gl.bindBuffer(gl.ELEMENT_ARRAY_BUFFER, indices);
    gl.bindVertexArray(null);
    return array;
  }

  private uploadTriangles(places: number[]): Chunks | null {
    const count = places.length / 6;
    if (count === 0) {
      return null;
    }
    const chunks = chunksOf(count, () => 0, (triangle) => {
      const p = places.slice(triangle * 6, triangle * 6 + 6);
      const box = {
        minX: Math.min(p[0]!, p[2]!, p[4]!), minY: Math.min(p[1]!, p[3]!, p[5]!), maxX: Math.max(p[0]!, p[2]!, p[4]!),
        maxY: Math.max(p[1]!, p[3]!, p[5]!),
      };
      return { box, size: Infinity, width: Infinity };
    });
    const gl = this.gl;
    const array = gl.createVertexArray();
    gl.bindVertexArray(array);
    const buffer = this.buffer(new Float32Array(places));
    gl.enableVertexAttribArray(0);
    gl.vertexAttribPointer(0, 2, gl.FLOAT, false, 8, 0);
    gl.bindVertexArray(null);
    return { array, lines: null, points: null, buffer, ...chunks };
  }

  private buffer(numbers: Float32Array): WebGLBuffer {
    const gl = this.gl;
    const buffer = gl.createBuffer()!;
    gl.bindBuffer(gl.ARRAY_BUFFER, buffer);
    gl.bufferData(gl.ARRAY_BUFFER, numbers, gl.STATIC_DRAW);
    return buffer;
  }

  // All marks have their two triangles in the same order, so that one buffer serves them all.
  private provideCorners(count: number): void {
    if (count <= this.cornerCount) {
      return;
    }
    this.cornerCount = Math.max(count, 2 * this.cornerCount, 4096);
    const corners = new Uint32Array(this.cornerCount * 6);
    const ends = new Uint32Array(this.cornerCount * 2);
    for (let i = 0; i < this.cornerCount; ++i) {
      corners.set([4 * i, 4 * i + 1, 4 * i + 2, 4 * i + 2, 4 * i + 1, 4 * i + 3], i * 6);
      ends.set([4 * i, 4 * i + 1], i * 2);
    }
    const { gl } = this;
    gl.bindVertexArray(null);
    gl.bindBuffer(gl.ELEMENT_ARRAY_BUFFER, this.corners);
    gl.bufferData(gl.ELEMENT_ARRAY_BUFFER, corners, gl.STATIC_DRAW);
    gl.bindBuffer(gl.ELEMENT_ARRAY_BUFFER, this.lineEnds);
    gl.bufferData(gl.ELEMENT_ARRAY_BUFFER, ends, gl.STATIC_DRAW);
  }

  private program(vertex: string, fragment: string): Program {
    const gl = this.gl;
    const program = gl.createProgram()!;
    for (const [kind, source] of [[gl.VERTEX_SHADER, vertex], [gl.FRAGMENT_SHADER, fragment]] as const) {
      const shader = gl.createShader(kind)!;
      gl.shaderSource(shader, source);
      gl.compileShader(shader);
      gl.attachShader(program, shader);
    }
    gl.linkProgram(program);
    if (!gl.getProgramParameter(program, gl.LINK_STATUS)) {
      throw new Error(gl.getProgramInfoLog(program) ?? 'no shader');
    }
    return {
      program, view: gl.getUniformLocation(program, 'view'), scale: gl.getUniformLocation(program, 'scale'),
      color: gl.getUniformLocation(program, 'color'), ends: gl.getUniformLocation(program, 'ends'),
    };
  }
}

// What marks of like size have in common: how long and how wide they are, by powers of two. What is larger than a few
// millimetres is seen in most pictures.
function classOf(marks: number[], mark: number): number {
  const first = marks[mark * MARK_SIZE + 4]!;
  const second = marks[mark * MARK_SIZE + 5]!;
  const power = (length: number): number => Math.min(Math.max(Math.round(Math.log2(length)), -6), 1) + 6;
  return 16 * power(Math.max(first, second)) + power(Math.min(first, second));
}

// How far along a curve of Hilbert a cell of a square of 256 by 256 lies: near cells are mostly near on the curve.
function alongCurve(column: number, row: number): number {
  let [x, y, distance] = [column, row, 0];
  for (let side = 128; side > 0; side >>= 1) {
    const isRight = (x & side) > 0;
    const isUpper = (y & side) > 0;
    distance += side * side * ((isRight ? 3 : 0) ^ (isUpper ? 1 : 0));
    if (!isUpper) {
      [x, y] = isRight ? [255 - y, 255 - x] : [y, x];
    }
  }
  return distance;
}

// Marks of like size together, and of these such as are near to each other, so that a chunk of them can be left out.
function orderOf(marks: number[], count: number): number[] {
  const box = emptyBox();
  for (let i = 0; i < count; ++i) {
    addPoint(box, marks[i * MARK_SIZE]!, marks[i * MARK_SIZE + 1]!);
  }
  const cell = Math.max(box.maxX - box.minX, box.maxY - box.minY, 1e-6) / 255;
  const keys = new Float64Array(count);
  for (let i = 0; i < count; ++i) {
    const column = Math.floor((marks[i * MARK_SIZE]! - box.minX) / cell);
    const row = Math.floor((marks[i * MARK_SIZE + 1]! - box.minY) / cell);
    keys[i] = classOf(marks, i) * 65536 + alongCurve(column, row);
  }
  return Array.from(keys.keys()).sort((a, b) => keys[b]! - keys[a]! || a - b);
}

interface Measured {
  box: Box;
  size: number;
  width: number;
}

function chunksOf(count: number, kindAt: (place: number) => number, measure: (place: number) => Measured):
  { chunks: Chunk[]; index: Flatbush } {
  const chunks: (Chunk & { box: Box })[] = [];
  let kind = NaN;
  for (let place = 0; place < count; ++place) {
    const last = chunks[chunks.length - 1];
    const own = kindAt(place);
    const measured = measure(place);
    if (!last || last.count === CHUNK || own !== kind) {
      chunks.push({ first: place, count: 1, ...measured });
      kind = own;
      continue;
    }
    addBox(last.box, measured.box);
    last.size = Math.max(last.size, measured.size);
    last.width = Math.max(last.width, measured.width);
    ++last.count;
  }
  const index = new Flatbush(chunks.length);
  chunks.forEach(({ box }) => index.add(box.minX, box.minY, box.maxX, box.maxY));
  index.finish();
  return { chunks, index };
}
