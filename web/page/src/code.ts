import type { Function as Fn } from "kelfunzioni/core";
import { texts } from "./texts.js";

const quoted = (text: string): string => JSON.stringify(text);

/** The unit that a program shows: the chosen one, or the first that is another than the base unit; "" where there is none. */
export const shownUnit = (one: Fn, chosen: string): string =>
  chosen || (one.unitTable.find((row) => row.unit !== one.baseUnit && !row.reciprocal)?.unit ?? one.baseUnit);

function inC(one: Fn, unit: string): string {
  const convert = `
    const s_converter_data dati = kelFunGetConvDatas(fid, ${quoted(one.baseUnit)}, ${quoted(unit)});`;
  const print = unit === "" ? `printf("%s\\n", nome.testo);` : `printf("%s: %g %s\\n", nome.testo, 100 * dati.gain + dati.offset, ${quoted(unit)});`;
  return `#include <kelfunzioni.h>
#include <stdio.h>

int main(void) {
    const kel_funpos fid = ${one.hex};
    const s_nome_breve nome = kelFunGetNomeFunzioneShort(NULL, fid);${unit === "" ? "" : convert}
    ${print}
    return 0;
}`;
}

function inCpp(one: Fn, unit: string): string {
  const convert = `
    const s_converter_data dati = catalogo->getParamConv(fid, ${quoted(one.baseUnit)}, ${quoted(unit)});`;
  const print = unit === "" ? `<< '\\n'` : `<< ": " << 100 * dati.gain + dati.offset << ${quoted(` ${unit}\n`)}`;
  return `#include <IFunzioni.h>

#include <iostream>
#include <memory>

int main() {
    const kel_funpos fid = ${one.hex};
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());${unit === "" ? "" : convert}
    std::cout << catalogo->getNomeFunzione(fid, false) ${print};
}`;
}

function inPython(one: Fn, unit: string): string {
  const print = unit === "" ? "print(function.name)" : `print(function.name, kel.convert(100, function, ${quoted(one.baseUnit)}, ${quoted(unit)}), ${quoted(unit)})`;
  return `import kelfunzioni as kel

function = kel.Function(${one.hex})
${print}`;
}

const inShell = (one: Fn, unit: string): string => `kelfun fid ${one.hex}${unit === "" ? "" : `\nkelfun convert ${one.hex} 100 --to '${unit}'`}`;

/** Short programs that name a function, and show 100 of its base unit in another. */
export function programs(one: Fn, chosen: string): readonly (readonly [string, string])[] {
  const unit = shownUnit(one, chosen);
  return [
    [texts.languages.c, inC(one, unit)],
    [texts.languages.cpp, inCpp(one, unit)],
    [texts.languages.python, inPython(one, unit)],
    [texts.languages.shell, inShell(one, unit)],
  ];
}
