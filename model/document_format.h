#pragma once

#include <string>

#include "base/values.h"
#include "model/document_lines.h"
#include "model/options.h"
#include "model/specification.h"

// The document format: a text file of records, each one line of ten comma-separated fields in the encoding of base/values.h. The
// first field is the record's tag:
//   1 a row of TablaArchivo        4 documentation texts, TablaZ           7 data source, definitions, error handling
//   2 a row of TablaTransaccion    5 banner, session name, blank handling  8 a row of TablaBAPIs
//   3 input, mode, output file     6 a row of TablaCondiciones             9 ProgID, mode parameter, value help
// Lines end with CR LF. The order of the records is free when reading.
namespace qor {

enum class Formato { Actual, Antiguo };

// Fills a new specification and new options from the records. Answers Formato::Antiguo when the text doesn't begin with a record
// of this format. Throws FalloDeEjecucion at the end of the text inside a record, at a full table, and at a value that is not of
// its field's kind; what was stored until then stays in the arguments. `lineas` is told where each record stands.
Formato LeerDocumento(LectorValores& lector, Especificacion& especificacion, Opciones& opciones,
                      LineasDeDocumento* lineas = nullptr);

// The earliest format, which has no tags: a run of values in a fixed order with two sentinel lines. Same failures.
void ImportarFormatoAntiguo(LectorValores& lector, Especificacion& especificacion, Opciones& opciones);

// The whole document. Rows behind the first one with an empty name (both names, on the program side) are not written.
std::string EscribirDocumento(const Especificacion& especificacion, const Opciones& opciones);

// The same with the rows behind a gap, for a copy of work in progress that has to lose nothing. Read like any document.
std::string EscribirTrabajo(const Especificacion& especificacion, const Opciones& opciones);

}  // namespace qor
