/** Typed arrays that grow as values come in, since the counts that a file declares are only hints. */

type Numbers = Float64Array | Float32Array | Int32Array | Uint32Array | Int8Array | Uint8Array;

const FIRST_CAPACITY = 64;

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

  /** Room for more values; returns where the first of them goes. */
  extend(count: number): number {
    const first = this.length;
    if (first + count > this.capacity) this.reserve(first + count);
    this.length = first + count;
    return first;
  }

  pushAll(values: ArrayLike<number>): void {
    const first = this.extend(values.length);
    this.values.set(values, first);
  }

  at(index: number): number {
    return index < this.length ? this.values[index]! : NaN;
  }

  set(index: number, value: number): void {
    this.values[index] = value;
  }

  /** The values in a range, where they are. */
  part({ begin, end }: { begin: number; end: number }): T {
    return this.values.subarray(begin, end) as T;
  }

  /** Hands over the values so far, where they are, and forgets them. */
  take(): T {
    const taken = this.part({ begin: 0, end: this.length });
    this.length = 0;
    this.capacity = FIRST_CAPACITY;
    this.values = this.make(FIRST_CAPACITY);
    return taken;
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
