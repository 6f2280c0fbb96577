// Draws batches with WebGL 2.
import {
  createBufferFromTypedArray, createBufferInfoFromArrays, createProgramInfo, createVertexArrayInfo, drawBufferInfo,
  ProgramInfo, setBuffersAndAttributes, setUniforms, VertexArrayInfo,
} from 'twgl.js';
import { Chunks, chunksOfMarks, chunksOfTriangles } from './chunks.js';
import { Box, isEmpty } from './geometry.js';
import { AREA_COLOR, AREA_SHADER, MARK_COLOR, MARK_SHADER, QUICK_COLOR, QUICK_SHADER } from './shaders.js';
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

interface Triangles {
  buffer: WebGLBuffer;
  chunks: Chunks;
  areas: VertexArrayInfo;
}

interface Marks {
  buffer: WebGLBuffer;
  chunks: Chunks;
  boxes: VertexArrayInfo;
  // The same marks as thin lines and as points, for pictures in motion.
  lines: VertexArrayInfo;
  points: VertexArrayInfo;
}

export interface Drawable {
  marks: Marks | null;
  triangles: Triangles | null;
}

// What is smaller than this part of a pixel is left out.
const SMALLEST = 0.3;
// In motion, on a computer that is slow at it: what is smaller than so many pixels is drawn as a point, what is thinner
// as a line, and what is smaller than these is left out, level by level. A picture has this share of the pixels of the
// page each way.
const POINT = 5;
const THIN = 2.4;
const QUICK = [
  { point: 1.5, line: 2, share: 1 }, { point: 2, line: 4, share: 1 }, { point: 2.6, line: 6, share: 0.5 },
  { point: 3.2, line: 9, share: 0.5 },
];
export const MOST_QUICK = QUICK.length;

// Whether marks of this size and width in pixels are drawn.
type Wanted = (size: number, width: number) => boolean;

export class Graphics {
  // How much is left out of a picture; 0 for nothing.
  quick = 0;
  private readonly gl: WebGL2RenderingContext;
  private readonly markProgram: ProgramInfo;
  private readonly areaProgram: ProgramInfo;
  private readonly quickProgram: ProgramInfo;
  // All marks have their two triangles in the same order, so that one buffer serves them all.
  private corners: WebGLBuffer | null = null;
  private lineEnds: WebGLBuffer | null = null;
  private cornerCount = 0;
  private transform: Transform = { a: 1, b: 0, c: 0, d: 1, e: 0, f: 0, scale: 1 };
  private viewport: Viewport = { x: 0, y: 0, width: 1, height: 1 };
  private view = new Float32Array(9);

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
    this.markProgram = programOf(gl, MARK_SHADER, MARK_COLOR);
    this.areaProgram = programOf(gl, AREA_SHADER, AREA_COLOR);
    this.quickProgram = programOf(gl, QUICK_SHADER, QUICK_COLOR);
    const names = gl.getExtension('WEBGL_debug_renderer_info');
    const name = names ? String(gl.getParameter(names.UNMASKED_RENDERER_WEBGL)) : '';
    this.isSoftware = /swiftshader|llvmpipe|softpipe|software|basic render/i.test(name);
    gl.enable(gl.BLEND);
    gl.blendFunc(gl.ONE, gl.ONE_MINUS_SRC_ALPHA);
    gl.enable(gl.SCISSOR_TEST);
  }

  stop(): void {
    this.gl.getExtension('WEBGL_lose_context')?.loseContext();
  }

  // Where there are fewer pixels than on the page, the browser makes them larger.
  resize(width: number, height: number): void {
    if (this.canvas.width !== width || this.canvas.height !== height) {
      this.canvas.width = width;
      this.canvas.height = height;
    }
  }

  // Begins the picture of one side. The viewport is in pixels of the canvas, from its upper left corner.
  begin(viewport: Viewport, transform: Transform, background: Rgba): void {
    const bottom = this.canvas.height - viewport.y - viewport.height;
    this.gl.viewport(viewport.x, bottom, viewport.width, viewport.height);
    this.viewport = viewport;
    this.transform = transform;
    const x = 2 / viewport.width;
    const y = -2 / viewport.height;
    const t = transform;
    this.view = new Float32Array([t.a * x, t.b * y, 0, t.c * x, t.d * y, 0, t.e * x - 1, t.f * y + 1, 1]);
    this.fill(viewport.x, bottom, viewport.width, viewport.height, background);
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
    this.fill(viewport.x + left, bottom + viewport.height - low, right - left, low - top, color);
    gl.scissor(viewport.x, bottom, viewport.width, viewport.height);
    return true;
  }

  clear(background: Rgba): void {
    this.fill(0, 0, this.canvas.width, this.canvas.height, background);
  }

  // How much of the pixels of the page a picture has each way.
  get share(): number {
    return QUICK[this.quick - 1]?.share ?? 1;
  }

  upload(batch: Batch): Drawable {
    return { marks: this.uploadMarks(batch.marks), triangles: this.uploadTriangles(batch.triangles) };
  }

  release({ marks, triangles }: Drawable): void {
    [marks, triangles].forEach((one) => one && this.gl.deleteBuffer(one.buffer));
    [marks?.boxes, marks?.lines, marks?.points, triangles?.areas]
      .forEach((array) => array && this.gl.deleteVertexArray(array.vertexArrayObject ?? null));
  }

  draw({ triangles, marks }: Drawable, color: Rgba): void {
    const quick = QUICK[this.quick - 1];
    if (triangles) {
      this.drawTriangles(triangles, color);
    }
    if (marks && quick) {
      this.drawQuick(marks, color, quick);
    } else if (marks) {
      this.drawMarks(marks, color, (size) => size >= SMALLEST);
    }
    this.gl.bindVertexArray(null);
  }

  private drawTriangles({ areas, chunks }: Triangles, color: Rgba): void {
    const { gl } = this;
    this.use(this.areaProgram, areas, color);
    if (color.a === 1) {
      gl.disable(gl.BLEND);
    }
    const least = QUICK[this.quick - 1]?.point ?? 0;
    this.eachRun(chunks, (size) => size >= least,
      (first, count) => drawBufferInfo(gl, areas, gl.TRIANGLES, count * 3, first * 3));
    gl.enable(gl.BLEND);
  }

  private drawMarks({ boxes, chunks }: Marks, color: Rgba, isWanted: Wanted): void {
    const { gl } = this;
    this.use(this.markProgram, boxes, color);
    this.eachRun(chunks, isWanted,
      (first, count) => drawBufferInfo(gl, boxes, gl.TRIANGLES, count * 6, first * 24));
  }

  private drawQuick(marks: Marks, color: Rgba, least: { point: number; line: number }): void {
    const { gl } = this;
    const { chunks, points, lines } = marks;
    this.use(this.quickProgram, points, color, { ends: 0 });
    this.eachRun(chunks, (size, width) => size < POINT && size >= (width < size / 3 ? least.line : least.point),
      (first, count) => drawBufferInfo(gl, points, gl.POINTS, count, first));
    this.use(this.quickProgram, lines, color, { ends: 1 });
    this.eachRun(chunks, (size, width) => size >= POINT && size >= least.line && width < THIN,
      (first, count) => drawBufferInfo(gl, lines, gl.LINES, count * 2, first * 8));
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

  // Fills a box of the canvas, from its lower left corner, and leaves what is drawn next within it.
  private fill(x: number, y: number, width: number, height: number, color: Rgba): void {
    const { gl } = this;
    gl.scissor(x, y, width, height);
    gl.clearColor(color.r, color.g, color.b, 1);
    gl.clear(gl.COLOR_BUFFER_BIT);
  }

  private use(program: ProgramInfo, array: VertexArrayInfo, color: Rgba, others: Record<string, number> = {}): void {
    const { gl, view } = this;
    const { scale } = this.transform;
    const { r, g, b, a } = color;
    gl.useProgram(program.program);
    setBuffersAndAttributes(gl, program, array);
    setUniforms(program, { view, scale, color: [r * a, g * a, b * a, a], ...others });
  }

  private eachRun(chunks: Chunks, isWanted: Wanted, draw: (first: number, count: number) => void): void {
    const { scale } = this.transform;
    chunks.eachRun(this.visible(), ({ size, width }) => isWanted(size * scale, width * scale), draw);
  }

  private uploadMarks(marks: number[]): Marks | null {
    const count = marks.length / MARK_SIZE;
    if (count === 0) {
      return null;
    }
    const chunks = chunksOfMarks(marks);
    const vertices = new Float32Array(count * 4 * MARK_SIZE);
    let at = 0;
    for (const mark of chunks.order) {
      for (let corner = 0; corner < 4; ++corner) {
        for (let i = 0; i < MARK_SIZE; ++i) {
          vertices[at++] = marks[mark * MARK_SIZE + i]!;
        }
      }
    }
    const { gl } = this;
    const buffer = createBufferFromTypedArray(gl, vertices);
    this.provideCorners(count);
    const array = (stride: number, indices: WebGLBuffer | null): VertexArrayInfo => {
      const part = { buffer, type: gl.FLOAT, stride };
      const place = { ...part, numComponents: 4, offset: 0 };
      const size = { ...part, numComponents: 3, offset: 16 };
      return createVertexArrayInfo(gl, [this.markProgram, this.quickProgram], {
        numElements: count, attribs: { place, size }, ...(indices ? { indices, elementType: gl.UNSIGNED_INT } : {}),
      });
    };
    const stride = MARK_SIZE * 4;
    return {
      buffer, chunks, boxes: array(stride, this.corners),
      lines: array(stride, this.lineEnds), points: array(4 * stride, null),
    };
  }

  private uploadTriangles(places: number[]): Triangles | null {
    if (places.length === 0) {
      return null;
    }
    const { gl } = this;
    const chunks = chunksOfTriangles(places);
    const data = new Float32Array(places.length);
    chunks.order.forEach((triangle, i) => data.set(places.slice(triangle * 6, triangle * 6 + 6), i * 6));
    const info = createBufferInfoFromArrays(gl, { place: { numComponents: 2, data } });
    return {
      buffer: info.attribs!['place']!.buffer, chunks, areas: createVertexArrayInfo(gl, this.areaProgram, info),
    };
  }

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
    // What was uploaded before goes on with the smaller ones.
    this.corners = createBufferFromTypedArray(gl, corners, gl.ELEMENT_ARRAY_BUFFER);
    this.lineEnds = createBufferFromTypedArray(gl, ends, gl.ELEMENT_ARRAY_BUFFER);
  }
}

function programOf(gl: WebGL2RenderingContext, vertex: string, fragment: string): ProgramInfo {
  // Where it cannot be made, nothing comes back.
  const program = createProgramInfo(gl, [vertex, fragment]) as ProgramInfo | null;
  if (!program) {
    throw new Error('no shader');
  }
  return program;
}
