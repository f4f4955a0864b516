// --code: the program that asks the library what a command asks it, in place of the answer.
#ifndef KELFUN_CODE_CODICE_H
#define KELFUN_CODE_CODICE_H

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "cli/opzioni.h"
#include "kelfunzioni.h"

namespace kel::strumento {

/// Adds --code to a command that has programs. Call it after the options of the output have been added: it excludes
/// them.
void aggiungi_codice(Comando& comando, std::string& linguaggio);

/// Adds a hidden --code to every other command: its error tells which commands have one.
void rifiuta_codice_altrove(CLI::App& programma);

/// Prints the program of a command.
///
/// @param linguaggio  what --code says; one of c, cpp and python.
/// @param nome        the program: the command, and after a blank which of its programs.
/// @param titolo      what the program shows, one line.
/// @param dati        what the piece asks for: texts, truths, lists of objects.
/// @throws ErroreUso  for a language that has no such program, with those that have it.
void stampa_programma(const std::string& linguaggio, const std::string& nome, const std::string& titolo,
                      const nlohmann::ordered_json& dati);

/// An identifier for programs: "c", composed from its fields by name, "hex", and "nome", its long name.
nlohmann::ordered_json fid_per_programma(kel_funpos fid);

/// Values separated by commas; the lines after the first are indented by so many blanks.
std::string elenco_per_programma(const std::vector<std::string>& valori, std::size_t rientro);

/// A number and a text as C, C++ and Python write them.
std::string float_per_programma(float valore);
std::string testo_per_programma(const std::string& testo);

}  // namespace kel::strumento

#endif
