#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "app/console_view.h"
#include "app/finding_formats.h"
#include "base/text.h"
#include "base/words.h"
#include "findings/catalogue.h"
#include "findings/place_words.h"

namespace qor {

namespace {

using Json = nlohmann::ordered_json;

// A reference to the file: relative where the path is. Whatever is not plain in a URI is percent-encoded, byte by byte.
std::string UriDeRuta(const std::string& ruta) {
    constexpr std::string_view llanos = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view cifras = "0123456789ABCDEF";
    const auto normal = std::filesystem::path(ruta).lexically_normal().generic_string();
    std::string uri = normal.starts_with('/') ? "file://" : "";
    for (const char caracter : normal) {
        const auto byte = static_cast<unsigned char>(caracter);
        if (llanos.find(caracter) != std::string_view::npos) {
            uri += caracter;
        } else {
            uri.append({'%', cifras[byte / 16], cifras[byte % 16]});
        }
    }
    return uri;
}

Json EnUnTexto(std::string_view texto) {
    Json objeto = Json::object();
    objeto["text"] = texto;
    return objeto;
}

// A place in a document; the line is left out where it is 0.
Json Localizacion(const DocumentoRevisado& documento, int linea) {
    Json objeto = Json::object();
    Json& fisica = objeto["physicalLocation"] = Json::object();
    fisica["artifactLocation"]["uri"] = UriDeRuta(documento.ruta);
    if (linea != 0) fisica["region"]["startLine"] = linea;
    return objeto;
}

// The kinds of findings that the log refers to, in the order of the catalogue, with one finding of each.
std::map<int, const Hallazgo*> EjemplosDeTipos(const DocumentosRevisados& documentos) {
    std::map<int, const Hallazgo*> ejemplos;
    for (const auto& documento : documentos) {
        for (const auto& hallazgo : documento.hallazgos.lista) ejemplos.emplace(hallazgo.codigo, &hallazgo);
    }
    return ejemplos;
}

// What is said of all findings of a kind. A message of Generate has its sentence in the language file only, so that of a finding
// stands for it.
std::string DescripcionDeTipo(const TipoDeHallazgo& tipo, const Hallazgo& ejemplo, const TextosIdioma& textos) {
    if (tipo.variantes == 0) return TextoDeTerminal(ejemplo.texto);
    std::string descripcion = TextoDeTerminal(textos.PalabraInglesa(palabra::DeHallazgo(tipo.codigo, 0)));
    for (const char* valor : {"{1}", "{2}", "{3}", "{4}"}) descripcion = ReemplazarTodo(descripcion, valor, "...");
    return descripcion;
}

Json Regla(const Hallazgo& ejemplo, const TextosIdioma& textos) {
    const auto& tipo = TipoDe(ejemplo.codigo);
    Json regla = Json::object();
    regla["id"] = CodigoDeHallazgo(tipo.codigo);
    regla["shortDescription"] = EnUnTexto(DescripcionDeTipo(tipo, ejemplo, textos));
    regla["help"] = EnUnTexto("See " + PaginaDeHallazgo(tipo.codigo) + " in the help of the program.");
    regla["defaultConfiguration"]["level"] = PalabraDeGravedad(tipo.gravedad);
    return regla;
}

Json Resultado(const DocumentoRevisado& documento, const Hallazgo& hallazgo, std::size_t regla) {
    Json resultado = Json::object();
    resultado["ruleId"] = CodigoDeHallazgo(hallazgo.codigo);
    resultado["ruleIndex"] = regla;
    resultado["level"] = PalabraDeGravedad(hallazgo.gravedad);
    resultado["message"] = EnUnTexto(TextoDeTerminal(hallazgo.texto));
    Json lugar = Localizacion(documento, documento.lineas.LineaDe(hallazgo.lugar));
    if (const auto palabras = TextoDeLugar(hallazgo.lugar); !palabras.empty()) {
        lugar["logicalLocations"][0]["fullyQualifiedName"] = palabras;
    }
    resultado["locations"].push_back(std::move(lugar));
    return resultado;
}

Json Notificacion(const DocumentoRevisado& documento, const char* nivel, const std::string& texto) {
    Json notificacion = Json::object();
    notificacion["level"] = nivel;
    notificacion["message"] = EnUnTexto(texto);
    notificacion["locations"].push_back(Localizacion(documento, 0));
    return notificacion;
}

// How the run went: the documents that it could not check, or not to their end.
Json Corrida(const DocumentosRevisados& documentos) {
    Json corrida = Json::object();
    corrida["executionSuccessful"] = std::none_of(documentos.begin(), documentos.end(), [](const auto& d) { return d.motivo; });
    Json notificaciones = Json::array();
    for (const auto& documento : documentos) {
        if (documento.motivo) {
            notificaciones.push_back(Notificacion(documento, "error", TextoDeTerminal(documento.motivo->texto)));
        } else if (!documento.hallazgos.completo) {
            notificaciones.push_back(
                Notificacion(documento, "warning", "The document was not checked to its end; there may be more findings."));
        }
    }
    corrida["toolExecutionNotifications"] = std::move(notificaciones);
    return corrida;
}

}  // namespace

std::string HallazgosComoSARIF(const DocumentosRevisados& documentos, const TextosIdioma& textos) {
    Json programa = Json::object();
    programa["name"] = "qorgen";
    programa["version"] = QOR_VERSION;
    programa["rules"] = Json::array();
    std::map<int, std::size_t> lugarDeRegla;
    for (const auto& [codigo, ejemplo] : EjemplosDeTipos(documentos)) {
        lugarDeRegla[codigo] = programa["rules"].size();
        programa["rules"].push_back(Regla(*ejemplo, textos));
    }

    Json corrida = Json::object();
    corrida["tool"]["driver"] = std::move(programa);
    corrida["invocations"].push_back(Corrida(documentos));
    corrida["columnKind"] = "utf16CodeUnits";
    corrida["defaultEncoding"] = "windows-1252";
    corrida["newlineSequences"] = {"\r\n", "\n", "\r"};
    corrida["results"] = Json::array();
    for (const auto& documento : documentos) {
        for (const auto& hallazgo : documento.hallazgos.lista) {
            corrida["results"].push_back(Resultado(documento, hallazgo, lugarDeRegla.at(hallazgo.codigo)));
        }
    }

    Json registro = Json::object();
    registro["$schema"] = "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";
    registro["version"] = "2.1.0";
    registro["runs"].push_back(std::move(corrida));
    return registro.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace qor
