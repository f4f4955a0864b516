/// @file
/// The whole flat face (the library as C functions): identifiers, records, constant tables and functions. C99 and
/// C++11.
#ifndef KELFUNZIONI_H
#define KELFUNZIONI_H

#include "kel_export.h"
#include "kel_funzioni.h"
#include "kel_identificatori.h"
#include "kel_record.h"
#include "kel_tabelle.h"

#endif
