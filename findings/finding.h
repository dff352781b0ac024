#pragma once

#include <string>
#include <vector>

#include "base/messages.h"
#include "model/naming.h"
#include "model/options.h"
#include "model/place.h"
#include "model/specification.h"

// What is wrong with a specification, as values. Generate's refusals, `qorgen check --all`, the pane of the desktop and the help
// page speak of the same ones.
namespace qor {

enum class Gravedad {
    Error,  // Generate refuses, or the report does not compile
    Aviso,  // the report runs, but sends or keeps something else than was meant
    Nota
};

struct Hallazgo {
    int codigo = 0;  // 203 is Q203; see findings/catalogue.h
    Gravedad gravedad = Gravedad::Error;
    int mensaje = 0;  // number of the message that Generate shows for it; 0 for none
    Lugar lugar;
    std::string celda;  // the text that stands at the place, in windows-1252
    std::string texto;  // a sentence: what is wrong, and what to do about it; windows-1252, in the loaded language
    // Lines of the report, from 1, at which a compiler would refuse it, with those at which their statements begin.
    std::vector<int> lineas = {};
};

// What is analysed.
struct PedidoDeHallazgos {
    const Especificacion& especificacion;
    const Opciones& opciones;
    const Preferencias& preferencias;
    const TextosIdioma& textos;
    std::string RutaDocumento;
    std::string NombreDocumento;
    int primeraFila = 0;  // by which number sentences call the first row of a table
};

struct Hallazgos {
    std::vector<Hallazgo> lista;  // in the order of the specification: file side, program side, conditions, BAPIs, texts, options
    bool completo = true;         // the report was composed and read to its end; else there may be more behind these
};

struct CuentaDeHallazgos {
    int errores = 0;
    int avisos = 0;
    int notas = 0;
};
CuentaDeHallazgos ContarHallazgos(const std::vector<Hallazgo>& lista);

// All findings. Nothing is shown, asked or written.
Hallazgos BuscarHallazgos(const PedidoDeHallazgos& pedido);

}  // namespace qor
