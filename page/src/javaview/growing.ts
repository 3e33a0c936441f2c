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

  /** The values so far, in an array of exactly their number. */
  take(): T {
    return this.array.slice(0, this.length) as T;
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
