/** Typed arrays that grow as values come in, since the counts that a file declares are only hints. */

type Numbers = Float64Array | Float32Array | Int32Array | Uint32Array | Int8Array | Uint8Array;

const FIRST_CAPACITY = 64;
const LARGE_BYTES = 1 << 14;

class Growing<T extends Numbers> {
  /** The values so far, and room for more behind them; valid until it grows. */
  values: T;
  length = 0;
  private capacity = FIRST_CAPACITY;

  constructor(private readonly make: (capacity: number) => T) {
    this.values = make(FIRST_CAPACITY);
  }

  push(value: number): void {
    if (this.length === this.capacity) this.reserve(this.length + 1);
    this.values[this.length++] = value;
  }

  /** Room for more values; says where the first of them goes. */
  extend(count: number): number {
    const first = this.length;
    if (first + count > this.capacity) this.reserve(first + count);
    this.length = first + count;
    return first;
  }

  at(index: number): number {
    return index < this.length ? this.values[index]! : NaN;
  }

  set(index: number, value: number): void {
    this.values[index] = value;
  }

  /** Forgets all values, and keeps the room for new ones. */
  clear(): void {
    this.length = 0;
  }

  /**
   * Hands over the values so far and forgets them. Few are copied into an array that `make` gives;
   * many are handed over where they are.
   */
  take(make: (length: number) => T = this.make): T {
    const { values, length } = this;
    this.length = 0;
    if (length * values.BYTES_PER_ELEMENT <= LARGE_BYTES) {
      const taken = make(length);
      taken.set(values.subarray(0, length));
      return taken;
    }
    this.values = this.make(FIRST_CAPACITY);
    this.capacity = FIRST_CAPACITY;
    return values.subarray(0, length) as T;
  }

  private reserve(least: number): void {
    this.capacity = Math.max(this.capacity * 2, least);
    const grown = this.make(this.capacity);
    grown.set(this.values);
    this.values = grown;
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

export class GrowingInt8 extends Growing<Int8Array> {
  constructor() {
    super((n) => new Int8Array(n));
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
