#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "abap/values/field.h"
#include "abap/values/internal_table.h"

// The statements on texts, each with its SY-SUBRC where it has one. Operands are taken as characters; sources are read before the
// target is written. A target that can't be written is MOVE_TO_LIT_NOTALLOWED.
namespace qor::abap {

int Concatenar(std::span<const Campo> fuentes, const Campo* separador, const Campo& destino);
int Partir(const Campo& texto, const Campo& separador, std::span<const Campo> destinos);
void PartirEnTabla(const Campo& texto, const Campo& separador, TablaInterna& tabla);
void Condensar(const Campo& campo, bool sinBlancos);
void CambiarCaja(const Campo& campo, bool mayusculas);
void TrasladarPares(const Campo& campo, const Campo& pares);  // TRANSLATE ... USING

// REPLACE what [LENGTH n] WITH other INTO field: the first occurrence.
int Reemplazar(const Campo& que, std::optional<int> largo, const Campo& otro, const Campo& campo, std::int32_t& fdpos);
// SEARCH field FOR pattern; .p., 'p*', '*p' and words too.
int Buscar(const Campo& campo, const Campo& patron, std::int32_t& fdpos);

enum class Lado : std::uint8_t { Izquierda, Derecha };
void DesplazarLugares(const Campo& campo, Lado lado, int lugares, bool circular);
int DesplazarHasta(const Campo& campo, Lado lado, const Campo& hasta, bool circular);  // SHIFT ... UP TO
void DesplazarBorrando(const Campo& campo, Lado lado, const Campo& caracteres);        // DELETING LEADING or TRAILING
int Superponer(const Campo& campo, const Campo& otro, const Campo* solo);              // OVERLAY ... WITH ... [ONLY ...]
int LargoDeTexto(const Campo& campo);                                                  // STRLEN

}  // namespace qor::abap
