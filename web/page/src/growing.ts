export type Numbers = Float32Array | Float64Array;

/** Numbers that come piece by piece. Room is taken for as many as the file will have, going by the first piece. */
export class Growing<All extends Numbers> {
  private all: All;
  private length = 0;

  constructor(private readonly kind: new (length: number) => All) {
    this.all = new kind(0);
  }

  /** Takes the next ones; `part` of the file has been read with them. */
  add(piece: ArrayLike<number>, part: number): void {
    const length = this.length + piece.length;
    if (length > this.all.length) {
      const larger = new this.kind(Math.ceil(length / Math.min(Math.max(part, 0.001), 1)) + 64);
      larger.set(this.all.subarray(0, this.length));
      this.all = larger;
    }
    this.all.set(piece, this.length);
    this.length = length;
  }

  get values(): All {
    return this.all.subarray(0, this.length) as All;
  }
}
