#include <nlohmann/json.hpp>

#include "app/console_view.h"
#include "app/finding_formats.h"
#include "base/code_page.h"
#include "findings/catalogue.h"
#include "findings/place_words.h"

namespace qor {

namespace {

using Json = nlohmann::ordered_json;

Json TextoONada(std::string_view texto) { return texto.empty() ? Json() : Json(texto); }

Json LugarEnJSON(const Lugar& lugar) {
    Json objeto = Json::object();
    objeto["side"] = TextoONada(LadoDeLugar(lugar));
    objeto["row"] = lugar.fila < 0 ? Json() : Json(lugar.fila);
    objeto["column"] = TextoONada(ColumnaDeLugar(lugar));
    objeto["line"] = lugar.linea == 0 ? Json() : Json(lugar.linea);
    objeto["option"] = lugar.opcion == nullptr ? Json() : Json(lugar.opcion);
    return objeto;
}

Json HallazgoEnJSON(const Hallazgo& hallazgo, const LineasDeDocumento& lineas) {
    Json objeto = Json::object();
    objeto["code"] = CodigoDeHallazgo(hallazgo.codigo);
    objeto["severity"] = PalabraDeGravedad(hallazgo.gravedad);
    objeto["message"] = hallazgo.mensaje == 0 ? Json() : Json(hallazgo.mensaje);
    objeto["place"] = LugarEnJSON(hallazgo.lugar);
    objeto["text"] = AUtf8(hallazgo.celda);
    objeto["sentence"] = TextoDeTerminal(hallazgo.texto);
    objeto["help"] = PaginaDeHallazgo(hallazgo.codigo);
    objeto["fileLine"] = lineas.LineaDe(hallazgo.lugar);
    return objeto;
}

void PonerCuenta(Json& objeto, const CuentaDeHallazgos& cuenta) {
    objeto["errors"] = cuenta.errores;
    objeto["warnings"] = cuenta.avisos;
    objeto["notes"] = cuenta.notas;
}

Json DocumentoEnJSON(const DocumentoRevisado& documento) {
    Json objeto = Json::object();
    objeto["path"] = documento.ruta;
    objeto["complete"] = !documento.motivo && documento.hallazgos.completo;
    objeto["findings"] = Json::array();
    for (const auto& hallazgo : documento.hallazgos.lista) {
        objeto["findings"].push_back(HallazgoEnJSON(hallazgo, documento.lineas));
    }
    if (documento.motivo) {
        Json& error = objeto["error"] = Json::object();
        error["number"] = documento.motivo->Numero();
        error["text"] = TextoDeTerminal(documento.motivo->texto);
        error["detail"] = TextoONada(documento.motivo->detalle);
    }
    PonerCuenta(objeto, ContarHallazgos(documento.hallazgos.lista));
    return objeto;
}

}  // namespace

std::string HallazgosComoJSON(const DocumentosRevisados& documentos) {
    Json todo = Json::object();
    todo["version"] = 1;
    todo["documents"] = Json::array();
    CuentaDeHallazgos suma;
    for (const auto& documento : documentos) {
        todo["documents"].push_back(DocumentoEnJSON(documento));
        const auto cuenta = ContarHallazgos(documento.hallazgos.lista);
        suma.errores += cuenta.errores;
        suma.avisos += cuenta.avisos;
        suma.notas += cuenta.notas;
    }
    PonerCuenta(todo, suma);
    return todo.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace qor
