/** Typed arrays that grow as values come in, since the counts that a file declares are only hints. */

type Numbers = Float64Array | Float32Array | Int32Array | Uint32Array | Uint8Array;

class Growing<T extends Numbers> {
  private array: T;
  length = 0;

  constructor(private readonly make: (capacity: number) => T) {
    this.array = make(64);
  }

  push(value: number): void {
    if (this.length === this.array.length) this.reserve(this.length * 2);
    this.array[this.length++] = value;
  }

  at(index: number): number {
    return this.array[index] ?? NaN;
  }

  set(index: number, value: number): void {
    this.array[index] = value;
  }

  /** Forgets all values, and keeps the room for new ones. */
  clear(): void {
    this.length = 0;
  }

  /** The values so far, in an array of exactly their number that `make` gives. */
  take(make: (length: number) => T = this.make): T {
    const taken = make(this.length);
    taken.set(this.array.subarray(0, this.length));
    return taken;
  }

  private reserve(capacity: number): void {
    const grown = this.make(capacity);
    grown.set(this.array);
    this.array = grown;
  }
}

export class GrowingFloat64 extends Growing<Float64Array> {
  constructor() {
    super((n) => new Float64Array(n));
  }
}

export class GrowingInt32 extends Growing<Int32Array> {
  constructor() {
    super((n) => new Int32Array(n));
  }
}

export class GrowingUint8 extends Growing<Uint8Array> {
  constructor() {
    super((n) => new Uint8Array(n));
  }
}

export class GrowingFloat32 extends Growing<Float32Array> {
  constructor() {
    super((n) => new Float32Array(n));
  }
}

export class GrowingUint32 extends Growing<Uint32Array> {
  constructor() {
    super((n) => new Uint32Array(n));
  }
}

const POOL_BYTES = 1 << 20;
const LARGE_BYTES = 1 << 14;

/**
 * Gives out typed arrays, small ones side by side in common buffers: a hundred thousand buffers of
 * a few bytes would take seconds to make and to hand over.
 */
export class Arena {
  private pool = new ArrayBuffer(0);
  private used = 0;

  readonly float64 = (length: number): Float64Array =>
    new Float64Array(...this.place(length * 8), length);
  readonly int32 = (length: number): Int32Array =>
    new Int32Array(...this.place(length * 4), length);
  readonly uint8 = (length: number): Uint8Array => new Uint8Array(...this.place(length), length);

  private place(bytes: number): [ArrayBuffer, number] {
    if (bytes > LARGE_BYTES) return [new ArrayBuffer(bytes), 0];
    if (this.used + bytes > this.pool.byteLength) {
      this.pool = new ArrayBuffer(POOL_BYTES);
      this.used = 0;
    }
    const at = this.used;
    this.used += (bytes + 7) & ~7;
    return [this.pool, at];
  }
}
