#include "model/document_lines.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace qor {

namespace {

constexpr int etiquetaArchivo = 1;
constexpr int etiquetaTransaccion = 2;
constexpr int etiquetaCondiciones = 6;
constexpr int etiquetaBAPIs = 8;

bool EsDeTabla(int etiqueta) {
    return etiqueta == etiquetaArchivo || etiqueta == etiquetaTransaccion || etiqueta == etiquetaCondiciones ||
           etiqueta == etiquetaBAPIs;
}

// A field of a record, by the tag and its number in the record.
struct Campo {
    int etiqueta;
    int numero;
};

struct CampoDeOpcion {
    std::string_view opcion;
    Campo campo;
};

// Radio buttons of one group share a field.
constexpr CampoDeOpcion camposDeOpciones[] = {
    {"Autofill", {3, 1}},
    {"ClienteOp", {3, 2}},
    {"ServidorOp", {3, 2}},
    {"TablaCh", {3, 3}},
    {"FileParameterCh", {3, 4}},
    {"CallTransaction", {3, 5}},
    {"AOption", {3, 6}},
    {"NOption", {3, 6}},
    {"EOption", {3, 6}},
    {"Programa", {3, 7}},
    {"ArchivoFuente", {3, 8}},
    {"AnchoFijo", {3, 9}},
    {"DelimTab", {3, 9}},
    {"Functional", {4, 1}},
    {"Technical", {4, 2}},
    {"Description", {4, 3}},
    {"Notes", {4, 4}},
    {"DescripcionStatus", {4, 5}},
    {"HScroll1", {4, 6}},
    {"ModuleCombo", {4, 7}},
    {"PrioridadCombo", {4, 8}},
    {"TablaZ", {4, 9}},
    {"DiaCheck", {5, 1}},
    {"QORCheck", {5, 2}},
    {"ArchivosCheck", {5, 3}},
    {"TCodeCheck", {5, 4}},
    {"StatusCheck", {5, 5}},
    {"GeneracionAutomatica", {5, 6}},
    {"GeneracionManual", {5, 6}},
    {"NombreManual", {5, 7}},
    {"ProcesarTodoOpt", {5, 8}},
    {"ProcesarParteOpt", {5, 8}},
    {"SpaceCode", {5, 9}},
    {"OrigenUsuario", {7, 1}},
    {"MultipleFilesOption", {7, 6}},
    {"OneFileOption", {7, 6}},
    {"Identificadores", {7, 7}},
    {"ErrorHandlingCheck", {7, 8}},
    {"SafeCallTransactionCheck", {7, 9}},
    {"ProgID", {9, 1}},
    {"ModeAsParameter", {9, 2}},
    {"AddF4", {9, 3}},
};

std::optional<Campo> CampoDe(const Lugar& lugar) {
    using Parte = Lugar::Parte;
    const int columna = lugar.columna + 1;  // the tag stands for the row as a whole
    switch (lugar.parte) {
        case Parte::Archivo: return Campo{etiquetaArchivo, columna};
        case Parte::Programa: return Campo{etiquetaTransaccion, columna};
        case Parte::Condiciones: return Campo{etiquetaCondiciones, columna};
        case Parte::BAPIs: return Campo{etiquetaBAPIs, columna};
        case Parte::OrigenVariables: return Campo{7, 2};
        case Parte::OrigenForms: return Campo{7, 3};
        case Parte::OrigenSource: return Campo{7, 4};
        case Parte::VariablesGlobales: return Campo{7, 5};
        case Parte::Opcion: {
            const std::string_view opcion = lugar.opcion == nullptr ? "" : lugar.opcion;
            const auto* const hallado = std::find_if(std::begin(camposDeOpciones), std::end(camposDeOpciones),
                                                     [&](const CampoDeOpcion& campo) { return campo.opcion == opcion; });
            if (hallado != std::end(camposDeOpciones)) return hallado->campo;
            return std::nullopt;
        }
        case Parte::Ninguna:
        case Parte::Preferencia: break;
    }
    return std::nullopt;
}

}  // namespace

void LineasDeDocumento::Anotar(int etiqueta, const Registro& comienzos) {
    auto& registros = registros_[etiqueta];
    if (!EsDeTabla(etiqueta)) registros.clear();
    registros.push_back(comienzos);
}

int LineasDeDocumento::LineaDe(const Lugar& lugar) const {
    const auto campo = CampoDe(lugar);
    if (!campo) return 1;
    const auto registros = registros_.find(campo->etiqueta);
    const auto fila = static_cast<std::size_t>(EsDeTabla(campo->etiqueta) ? lugar.fila : 0);  // a row of -1 is none
    if (registros == registros_.end() || fila >= registros->second.size()) return 1;
    const int comienzo = registros->second[fila].at(static_cast<std::size_t>(campo->numero));
    return comienzo + std::max(lugar.linea - 1, 0);
}

}  // namespace qor
