import { KelError, whole } from "./errors.js";
import { asFunction, type CatalogueFunction, type FunctionLike } from "./function.js";
import { bytes, call, callUnsigned, text, u32, view, within, type Memory } from "./module.js";
import { packetType, sampleType, type SampleType } from "./sampletype.js";

export type Alignment = "right" | "left" | "compact";
const ALIGNMENTS: readonly Alignment[] = ["right", "left", "compact"];

export interface ConverterOptions {
  /** The format of a sample: its name or code; of a packet the function tells it. */
  sampleType?: string | number;
  /** A unit of the function; the base unit unless given. */
  unit?: string;
  /** Characters of a text, the point not counted. */
  width?: number;
  /** Digits behind the point; those of the unit unless given. */
  decimals?: number;
  /** One decimal for small numbers and none for large ones. */
  autoDecimals?: boolean;
  alignment?: Alignment;
  /** The packet that the function is a subfield of. */
  packet?: FunctionLike;
  /** A field of bits within the sample: the first of them, and how many. */
  bits?: readonly [number, number];
}

/** Samples as numbers: one a sample, with its status word, and whether it is good. */
export interface DecodedColumn {
  readonly values: Float32Array;
  readonly status: Uint8Array;
}

const CHANNEL = 112;
const CONVERTER = 44;
const TEXT = 32;

/** Turns the bytes of samples into values and texts. */
export class Converter {
  readonly function: CatalogueFunction;
  readonly sampleType: SampleType;
  readonly unit: string;
  readonly width: number;
  readonly decimals: number;
  private readonly autoDecimals: boolean;
  private readonly alignment: number;
  private readonly channel: number;
  private readonly bits: readonly [number, number];

  constructor(what: FunctionLike, options: ConverterOptions = {}) {
    this.function = asFunction(what);
    const packet = options.packet === undefined ? this.function : asFunction(options.packet);
    this.channel = packet.identifier;
    const known = packetType(packet.identifier);
    if (options.sampleType === undefined && known === undefined)
      throw new KelError(
        `the function ${this.function.name || this.function.hex} does not tell the format of its samples; ` +
          "accepted: sampleType, such as int16",
      );
    this.sampleType = options.sampleType === undefined ? (known as SampleType) : sampleType(options.sampleType);
    this.unit = this.function.unit(options.unit);
    this.width = whole(options.width ?? 8, "width", 0, 31);
    this.decimals = whole(options.decimals ?? this.function.decimals(this.unit || undefined), "decimals", 0, 7);
    this.autoDecimals = options.autoDecimals ?? false;
    this.alignment = ALIGNMENTS.indexOf(options.alignment ?? "right");
    if (this.alignment < 0)
      throw new KelError(`alignment is '${String(options.alignment)}'; accepted: ${ALIGNMENTS.join(", ")}`);
    const [first, count] = options.bits ?? [0, 0];
    this.bits = [whole(first, "the first bit", 0, 31), whole(count, "the number of bits", 0, 32)];
  }

  /** The values and status words of samples one behind the other; 0 where a sample is not good. */
  decode(samples: Uint8Array): DecodedColumn {
    return within((memory) => {
      const count = this.count(samples);
      const values = memory.take(4 * count);
      const states = memory.take(count);
      this.read(memory, samples, count, { values, states });
      return {
        values: new Float32Array(bytes().slice(values, values + 4 * count).buffer),
        status: bytes().slice(states, states + count),
      };
    });
  }

  /** The texts of samples one behind the other, as a display shows them. */
  texts(samples: Uint8Array): string[] {
    return within((memory) => {
      const count = this.count(samples);
      const texts = memory.take(TEXT * count);
      this.read(memory, samples, count, { texts });
      return Array.from({ length: count }, (_, i) => text(texts + TEXT * i, TEXT));
    });
  }

  private count(samples: Uint8Array): number {
    const size = this.sampleType.bytes;
    if (size === 0) throw new KelError(`samples of type ${this.sampleType.name} have no bytes; accepted: another type`);
    if (samples.length % size !== 0)
      throw new KelError(
        `${samples.length} bytes are no whole samples of type ${this.sampleType.name}; accepted: a multiple of ${size}`,
      );
    return samples.length / size;
  }

  /** The converter's record in the module, as kelConvInit leaves it. How texts look is told beforehand. */
  private setUp(memory: Memory): number {
    const channel = memory.take(CHANNEL);
    const converter = memory.take(CONVERTER);
    const unit = callUnsigned("kelFunGetConvData", this.function.identifier, memory.text(this.unit));
    const record = view();
    record.setUint32(channel + 12, this.channel, true);
    record.setUint32(channel + 20, this.sampleType.code, true);
    record.setUint32(converter + 16, this.width, true);
    record.setUint32(converter + 20, this.decimals, true);
    record.setUint32(converter + 24, this.autoDecimals ? 1 : 0, true);
    record.setUint32(converter + 28, this.alignment, true);
    call("kelConvInit", converter, channel, this.function.identifier, unit, this.bits[0], this.bits[1], 1);
    return converter;
  }

  private read(
    memory: Memory,
    samples: Uint8Array,
    count: number,
    to: { values?: number; states?: number; texts?: number },
  ): void {
    const data = memory.write(samples);
    const converter = this.setUp(memory);
    const column = memory.take(20);
    const places = [converter, to.values ?? 0, to.states ?? 0, 0, to.texts ?? 0];
    places.forEach((place, i) => view().setUint32(column + 4 * i, place, true));
    call("kelColLeggi", data, this.sampleType.bytes, count, column, 1);
  }

  /** Whether samples have values at all: some packets have texts alone. */
  get hasValues(): boolean {
    return within((memory) => u32(this.setUp(memory) + 32) !== 0);
  }
}
