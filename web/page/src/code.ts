import type { Function as Fn } from "kelfunzioni/core";

const quoted = (text: string): string => JSON.stringify(text);

/** Short programs that name a function and show 100 of its base unit in another. */
export function programs(one: Fn, unit: string): readonly (readonly [string, string])[] {
  const base = one.baseUnit;
  return [
    [
      "C",
      `#include <kelfunzioni.h>
#include <stdio.h>

int main(void) {
    const kel_funpos fid = ${one.hex}; /* ${one.name} */
    const s_nome_breve nome = kelFunGetNomeFunzioneShort(NULL, fid);
    const s_converter_data dati = kelFunGetConvDatas(fid, ${quoted(base)}, ${quoted(unit)});
    printf("%s: %g %s\\n", nome.testo, 100 * dati.gain + dati.offset, ${quoted(unit)});
    return 0;
}`,
    ],
    [
      "C++",
      `#include <IFunzioni.h>

#include <iostream>
#include <memory>

int main() {
    const kel_funpos fid = ${one.hex};
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const s_converter_data dati = catalogo->getParamConv(fid, ${quoted(base)}, ${quoted(unit)});
    std::cout << catalogo->getNomeFunzione(fid, false) << ": " << 100 * dati.gain + dati.offset << ${quoted(` ${unit}\n`)};
}`,
    ],
    [
      "Python",
      `import kelfunzioni as kel

function = kel.Function(${one.hex})
print(function.name, kel.convert(100, function, ${quoted(base)}, ${quoted(unit)}), ${quoted(unit)})`,
    ],
    ["Shell", `kelfun fid ${one.hex}\nkelfun convert ${one.hex} 100 --to '${unit}'`],
  ];
}
