import { KelError, noSuch, whole } from "./errors.js";
import { table, textAt, within, callText } from "./module.js";

/** The fields of an identifier by name. */
export type FieldName =
  | "quantity"
  | "object"
  | "position"
  | "details"
  | "specialisation"
  | "inout"
  | "numbered"
  | "number"
  | "leftright"
  | "frontrear"
  | "updown";

export interface FieldValue {
  readonly value: number;
  /** "FID_PHI_SPEED" */
  readonly xml: string;
  readonly shortText: string | null;
  readonly text: string | null;
}

interface Place {
  readonly field: FieldName;
  readonly bit: number;
  readonly bits: number;
}

const place = (field: FieldName, bit: number, bits: number): Place => ({ field, bit, bits });

/** Where the fields of an identifier lie, from bit 0 up: a packet has details, and a numbered one no sides. */
export function layout(identifier: number): Place[] {
  const packet = (identifier & 0x7f) === packetQuantity();
  const numbered = (identifier & (1 << 22)) !== 0;
  return [
    place("quantity", 0, 7),
    place(packet ? "details" : "object", 7, 8),
    place(packet ? "specialisation" : "position", 15, 5),
    place("inout", 20, 2),
    place("numbered", 22, 1),
    ...(numbered
      ? [place("number", 23, 6)]
      : [place("leftright", 23, 2), place("frontrear", 25, 2), place("updown", 27, 2)]),
  ];
}

export const bitsOf = (identifier: number, { bit, bits }: Place): number => (identifier >>> bit) & (2 ** bits - 1);

const VOCABULARIES: Record<string, readonly [string, number]> = {
  quantity: ["grandezza_fisica_FunzKel", 32],
  object: ["oggetto_misurato_FunzKel", 58],
  position: ["posizione_FunzKel", 23],
  inout: ["inout_FunzKel", 4],
  leftright: ["leftright_FunzKel", 4],
  frontrear: ["frontrear_FunzKel", 4],
  updown: ["updown_FunzKel", 4],
  details: ["dettagli_FunzKel", 4],
  specialisation_gps: ["specializzazione_gps_FunzKel", 2],
  specialisation_laptime: ["specializzazione_laptime_FunzKel", 3],
};

const read = new Map<string, readonly FieldValue[]>();

/** The values of a vocabulary: that of a field, or of the specialisation of GPS or lap packets. */
export function vocabulary(name: string): readonly FieldValue[] {
  let rows = read.get(name);
  if (rows === undefined) {
    const [exported, count] = VOCABULARIES[name] ?? ["", 0];
    const at = count === 0 ? 0 : table(exported);
    rows = Array.from({ length: count }, (_, value) => ({
      value,
      xml: textAt(at + 16 * value + 4),
      shortText: textAt(at + 16 * value + 8) || null,
      text: textAt(at + 16 * value + 12) || null,
    }));
    read.set(name, rows);
  }
  return rows;
}

let packet: number | undefined;
export const packetQuantity = (): number =>
  (packet ??= vocabulary("quantity").findIndex((row) => row.xml === "FID_PHI_PACKAGE"));

export const vocabularyNames = Object.keys(VOCABULARIES);

const SPECIALISED: Record<string, string> = { FID_DETTAGLI_GPS: "gps", FID_DETTAGLI_LAPTIME: "laptime" };

/** The values that a field may have; of a specialisation those of the kind of packet. Empty for plain numbers. */
export function fieldValues(field: FieldName, details = 0): readonly FieldValue[] {
  if (field !== "specialisation") return vocabulary(field);
  return vocabulary(`specialisation_${SPECIALISED[vocabulary("details")[details]?.xml ?? ""] ?? ""}`);
}

/** An identifier's fields by name or number; those that are left out are 0. */
export interface Fields {
  quantity?: string | number;
  object?: string | number;
  position?: string | number;
  details?: string | number;
  specialisation?: string | number;
  inout?: string | number;
  number?: number;
  leftright?: string | number;
  frontrear?: string | number;
  updown?: string | number;
}

export const normal = (word: string): string => within((memory) => callText("kelWebNormale", memory.text(word)));

// "FID_PHI_ANGLE_SEC_RATIO" is known by its last words, too: "angle sec ratio".
const lastWords = (xml: string): string => normal(xml.split("_").slice(2).join("_"));

function valueOf(field: FieldName, value: string | number, most: number, details: number): number {
  if (typeof value === "number") return whole(value, `the ${field}`, 0, most);
  const rows = fieldValues(field, details);
  const word = normal(value);
  const found =
    rows.find((row) => normal(row.xml) === word || lastWords(row.xml) === word) ??
    rows.find((row) => row.text !== null && normal(row.text) === word);
  if (found === undefined) throw noSuch(field, value, rows.map((row) => lastWords(row.xml)));
  return found.value;
}

/** The identifier of some fields. */
export function compose(fields: Fields): number {
  const packet = fields.details !== undefined || fields.specialisation !== undefined;
  const sides = (["leftright", "frontrear", "updown"] as const).filter((side) => fields[side] !== undefined);
  if (fields.number !== undefined && sides.length > 0)
    throw new KelError(`number and ${sides.join(", ")} exclude each other; accepted: one of them`);
  if (packet && (fields.object !== undefined || fields.position !== undefined))
    throw new KelError("details and specialisation of packets exclude object and position; accepted: one of them");
  const quantity = packet ? packetQuantity() : valueOf("quantity", fields.quantity ?? 0, 127, 0);
  let identifier = quantity;
  const details = valueOf("details", fields.details ?? 0, 255, 0);
  const put = (field: FieldName, value: string | number | undefined, bit: number, bits: number): void => {
    identifier |= valueOf(field, value ?? 0, 2 ** bits - 1, details) << bit;
  };
  put(packet ? "details" : "object", packet ? fields.details : fields.object, 7, 8);
  put(packet ? "specialisation" : "position", packet ? fields.specialisation : fields.position, 15, 5);
  put("inout", fields.inout, 20, 2);
  if (fields.number !== undefined) identifier |= (1 << 22) | (whole(fields.number, "the number", 0, 63) << 23);
  else {
    put("leftright", fields.leftright, 23, 2);
    put("frontrear", fields.frontrear, 25, 2);
    put("updown", fields.updown, 27, 2);
  }
  return identifier >>> 0;
}

/** Whether an identifier ends a table. */
export const isTableEnd = (identifier: number): boolean => (identifier & 0x7fff) === ((58 << 7) | 32);

export const hex = (value: number, digits = 8): string =>
  `0x${(value >>> 0).toString(16).toUpperCase().padStart(digits, "0")}`;

