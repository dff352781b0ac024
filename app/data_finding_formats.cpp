#include "app/data_finding_formats.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "app/console_view.h"
#include "base/code_page.h"
#include "base/text.h"

namespace qor {

namespace {

using Json = nlohmann::ordered_json;

const char* Gravedad(const HallazgoDeDatos& hallazgo) { return EsAviso(hallazgo.clase) ? "hint" : "error"; }

// A value of a file on a terminal, where its control characters would do something.
std::string SinControles(std::string_view texto) {
    std::string limpio;
    for (const char c : texto) {
        char escrito[8] = {c};
        if (EsInvisible(c)) std::snprintf(escrito, sizeof escrito, "\\x%02X", static_cast<unsigned char>(c));
        limpio += escrito;
    }
    return limpio;
}

Json HallazgoEnJSON(const HallazgoDeDatos& hallazgo) {
    const auto numero = [](std::uint64_t valor) { return valor == 0 ? Json() : Json(valor); };
    Json objeto = Json::object();
    objeto["code"] = NombreDe(hallazgo.clase);
    objeto["severity"] = Gravedad(hallazgo);
    objeto["line"] = numero(hallazgo.linea);
    objeto["column"] = numero(hallazgo.columna);
    objeto["field"] = hallazgo.campo.empty() ? Json() : Json(TextoDeTerminal(hallazgo.campo));
    objeto["row"] = hallazgo.fila < 0 ? Json() : Json(hallazgo.fila);
    objeto["value"] = TextoDeTerminal(hallazgo.valor);
    objeto["sentence"] = TextoDeTerminal(hallazgo.texto);
    objeto["otherLine"] = numero(hallazgo.otraLinea);
    return objeto;
}

}  // namespace

std::string HallazgoDeDatosComoTexto(std::string_view ruta, const HallazgoDeDatos& hallazgo) {
    std::string linea = RutaDeTerminal(ruta);
    if (hallazgo.linea > 0) linea += ':' + std::to_string(hallazgo.linea);
    if (hallazgo.linea > 0 && hallazgo.columna > 0) linea += ':' + std::to_string(hallazgo.columna);
    linea.append(": ").append(Gravedad(hallazgo)).append(": ");
    std::string que = TextoDeTerminal(SinControles(hallazgo.campo));
    if (!hallazgo.valor.empty()) que += (que.empty() ? "\"" : " \"") + TextoDeTerminal(SinControles(hallazgo.valor)) + '"';
    if (!que.empty()) linea += que + ": ";
    return linea + TextoDeTerminal(SinControles(hallazgo.texto)) + " [" + NombreDe(hallazgo.clase) + "]\n";
}

std::string ResumenDeDatos(const std::vector<ArchivoConHallazgos>& archivos, std::uint64_t callados) {
    std::string resumen;
    std::uint64_t registros = 0;
    std::uint64_t errores = 0;
    std::uint64_t avisos = 0;
    for (const auto& archivo : archivos) {
        if (!archivo.completo) resumen += RutaDeTerminal(archivo.ruta) + ": not checked to its end\n";
        registros += archivo.registros;
        errores += archivo.errores;
        avisos += archivo.avisos;
    }
    if (callados > 0) resumen += Cuantos(callados, "finding") + " more, see --max-findings\n";
    return resumen + Cuantos(archivos.size(), "file") + ", " + Cuantos(registros, "record") + ", " + Cuantos(errores, "error") +
           ", " + Cuantos(avisos, "hint") + '\n';
}

std::string HallazgosDeDatosComoJSON(const std::vector<ArchivoConHallazgos>& archivos) {
    Json todo = Json::object();
    todo["version"] = 1;
    todo["files"] = Json::array();
    std::uint64_t errores = 0;
    std::uint64_t avisos = 0;
    for (const auto& archivo : archivos) {
        Json objeto = Json::object();
        objeto["name"] = archivo.nombre;
        objeto["path"] = archivo.ruta;
        objeto["complete"] = archivo.completo;
        objeto["records"] = archivo.registros;
        objeto["findings"] = Json::array();
        for (const auto& hallazgo : archivo.hallazgos) objeto["findings"].push_back(HallazgoEnJSON(hallazgo));
        objeto["errors"] = archivo.errores;
        objeto["hints"] = archivo.avisos;
        todo["files"].push_back(std::move(objeto));
        errores += archivo.errores;
        avisos += archivo.avisos;
    }
    todo["errors"] = errores;
    todo["hints"] = avisos;
    return todo.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace qor
