#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "app/command_line.h"
#include "app/finding_formats.h"
#include "base/files.h"
#include "base/text.h"
#include "base/values.h"
#include "model/document_format.h"
#include "tests/support/language.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

using Json = nlohmann::ordered_json;  // two objects are equal when their members have the same order

// Three kinds of places and of severities, all characters that some format has to escape, and a document that was not read.
DocumentosRevisados Revisados() {
    DocumentoRevisado uno;
    uno.ruta = "./a,b%\u00F1:1 c.qor";
    uno.lineas.Anotar(1, {{2, 2, 2, 2, 2, 2, 2, 2, 2, 2}});
    for (int fila = 0; fila <= 12; ++fila) uno.lineas.Anotar(2, {{9, 9, 9, 9, 10 + fila, 30, 30, 30, 30, 30}});
    uno.lineas.Anotar(6, {{40, 40, 41, 50, 50, 50, 50, 50, 50, 50}});
    uno.lineas.Anotar(4, {{60, 60, 61, 62, 63, 64, 64, 64, 64, 65}});
    uno.hallazgos.lista = {
        {203, Gravedad::Error, 310, Lugar::EnPrograma(12, 3), "'O'Ni\xF1o'", "100 % of \"'\", here:\r\nmend \x80"},
        {407, Gravedad::Aviso, 0, Lugar::EnCondicion(0, 1, 3), "IF\tA.", "An odd one."},
        {601, Gravedad::Nota, 0, Lugar::EnArchivo(0, 0), "MATNR", "Unused."},
        {113, Gravedad::Error, 392, Lugar::EnOpcion("TablaZ"), "", "No table."},
    };
    uno.hallazgos.completo = false;
    DocumentoRevisado otro;
    otro.ruta = "/no\xFF.qor";
    otro.motivo = Mensaje{{335}, "Not \xF3pened", "No such file: /no"};
    return {uno, otro};
}

std::string Esperado(const char* nombre) { return LeerArchivo(QOR_TEST_SOURCE_DIR "/tests/expected/check/" + std::string(nombre)); }

TEST(CheckAll, TextIsOneLineForEachFinding) {
    auto revisados = Revisados();
    const std::string ruta = "./a,b%\u00F1:1 c.qor: ";
    EXPECT_EQ(HallazgosComoTexto(revisados), Esperado("findings.txt"));
    const std::string sinRevisar = ruta + "not checked to its end, there may be more behind these\n/no\xFF.qor: not checked\n";
    EXPECT_EQ(ResumenDeHallazgos(revisados), sinRevisar + "2 documents, 2 errors, 1 warning, 1 note\n");
    TomarAvisosPorErrores(revisados[0].hallazgos);
    EXPECT_TRUE(Contiene(HallazgosComoTexto(revisados), "line 3: error Q407: "));
    EXPECT_EQ(ResumenDeHallazgos(revisados), sinRevisar + "2 documents, 3 errors, 0 warnings, 1 note\n");
}

#ifndef LEFT_OUT_CheckAll_WorkflowCommandsAreEscaped
TEST(CheckAll, WorkflowCommandsAreEscaped) { EXPECT_EQ(HallazgosParaGitHub(Revisados()), Esperado("github.txt")); }
#endif

TEST(CheckAll, JSONHasEveryPart) { EXPECT_EQ(Json::parse(HallazgosComoJSON(Revisados())), Json::parse(Esperado("findings.json"))); }

// What the format asks for: the members that have to be there, and references that lead to what they name.
void ExigirSARIF(const Json& registro) {
    EXPECT_TRUE(registro.at("$schema").get<std::string>().ends_with("sarif-schema-2.1.0.json"));
    EXPECT_EQ(registro.at("version"), "2.1.0");
    ASSERT_EQ(registro.at("runs").size(), 1U);
    const auto& corrida = registro["runs"][0];
    const auto& programa = corrida.at("tool").at("driver");
    EXPECT_EQ(programa.at("name"), "qorgen");
    EXPECT_FALSE(programa.at("version").get<std::string>().empty());
    EXPECT_EQ(corrida.at("columnKind"), "utf16CodeUnits");
    EXPECT_TRUE(corrida.at("invocations").at(0).at("executionSuccessful").is_boolean());
    const std::set<std::string> niveles = {"error", "warning", "note"};
    std::set<std::string> reglas;
    for (const auto& regla : programa.at("rules")) {
        EXPECT_TRUE(reglas.insert(regla.at("id")).second) << regla;
        EXPECT_FALSE(regla.at("shortDescription").at("text").get<std::string>().empty()) << regla;
        EXPECT_FALSE(Contiene(regla["shortDescription"]["text"].get<std::string>(), "{")) << regla;
        EXPECT_TRUE(niveles.contains(regla.at("defaultConfiguration").at("level"))) << regla;
    }
    ASSERT_TRUE(corrida.at("results").is_array());
    for (const auto& resultado : corrida["results"]) {
        EXPECT_EQ(programa["rules"].at(resultado.at("ruleIndex").get<std::size_t>()).at("id"), resultado.at("ruleId"));
        EXPECT_TRUE(niveles.contains(resultado.at("level"))) << resultado;
        EXPECT_FALSE(resultado.at("message").at("text").get<std::string>().empty()) << resultado;
        const auto& fisica = resultado.at("locations").at(0).at("physicalLocation");
        EXPECT_GE(fisica.at("region").at("startLine").get<int>(), 1);
        const auto uri = fisica.at("artifactLocation").at("uri").get<std::string>();
        EXPECT_EQ(uri.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/%:"),
                  std::string::npos);
    }
}

#ifndef LEFT_OUT_CheckAll_SARIFHoldsWhatItsSchemaAsksFor
TEST(CheckAll, SARIFHoldsWhatItsSchemaAsksFor) {
    const auto textos = TextosDe("Espanol");
    ExigirSARIF(Json::parse(HallazgosComoSARIF({}, textos)));
    const auto registro = Json::parse(HallazgosComoSARIF(Revisados(), textos));
    ExigirSARIF(registro);
    const auto& corrida = registro["runs"][0];
    ASSERT_EQ(corrida["results"].size(), 4U);
    const auto esperada = Json::parse(Esperado("run.sarif"));
    EXPECT_EQ(corrida["results"][0], esperada["results"][0]);
    EXPECT_EQ(corrida["invocations"], esperada["invocations"]);
    // A warning that is taken for an error is one where it is found; its kind stays what it is.
    auto revisados = Revisados();
    TomarAvisosPorErrores(revisados[0].hallazgos);
    const auto conErrores = Json::parse(HallazgosComoSARIF(revisados, textos))["runs"][0];
    EXPECT_EQ(conErrores["results"][1]["level"], "error");
    EXPECT_EQ(conErrores["tool"]["driver"], corrida["tool"]["driver"]);
}
#endif

// A text of several lines, each another one: quotes, a blank line, all kinds of line ends.
std::string Varias(const std::string& nombre) {
    return nombre + " 1\r\n\r\n" + nombre + " \"3\"\n" + nombre + ", 4\r" + nombre + " 5\r\n";
}

Especificacion ConTextos(const std::string& nombre, int filas) {
    Especificacion e;
    for (int fila = 0; fila < filas; ++fila) {
        const std::string n = nombre + std::to_string(fila);
        e.TablaArchivo[fila] = {"F" + n, "7", Varias("n" + n), fila % 2 == 0 ? Varias("c" + n) : ""};
        e.TablaTransaccion[fila] = {"", "D" + n, "P" + n, "'\"" + n + "\"'", fila % 3 == 0 ? Varias("t" + n) : ""};
        e.TablaCondiciones[fila] = {"C" + n, Varias("x" + n)};
        e.TablaBAPIs[fila] = {"B" + n, Varias("l" + n)};
    }
    e.OrigenVariables = Varias(nombre + " var");
    e.OrigenForms = Varias(nombre + " forms");
    e.OrigenSource = Varias(nombre + " source");
    e.VariablesGlobales = Varias(nombre + " globals");
    return e;
}

// Every line that is told is the one that holds the record or the line of the text, in whatever order the records stand.
TEST(DocumentLines, LeadToRecordsAndTextsOfTheFile) {
    const std::pair<const char*, std::string Opciones::*> opciones[] = {{"Programa", &Opciones::Programa},
                                                                        {"ArchivoFuente", &Opciones::ArchivoFuente},
                                                                        {"Functional", &Opciones::Functional},
                                                                        {"Technical", &Opciones::Technical},
                                                                        {"Description", &Opciones::Description},
                                                                        {"Notes", &Opciones::Notes},
                                                                        {"DescripcionStatus", &Opciones::DescripcionStatus},
                                                                        {"ModuleCombo", &Opciones::ModuleCombo},
                                                                        {"PrioridadCombo", &Opciones::PrioridadCombo},
                                                                        {"TablaZ", &Opciones::TablaZ},
                                                                        {"NombreManual", &Opciones::NombreManual},
                                                                        {"SpaceCode", &Opciones::SpaceCode},
                                                                        {"Identificadores", &Opciones::Identificadores},
                                                                        {"ProgID", &Opciones::ProgID}};
    const auto conOpciones = [&](const std::string& nombre) {
        Opciones o;
        for (const auto& [opcion, miembro] : opciones) o.*miembro = Minusculas(Varias(nombre + opcion));
        return o;
    };
    const std::string texto = EscribirDocumento(ConTextos("a", 5), conOpciones("a")) + "77,,,,,,,,,\r\n" +
                              EscribirDocumento(ConTextos("b", 3), conOpciones("b"));
    const auto archivo = PartirEnLineas(texto);
    Especificacion e;
    Opciones o;
    LineasDeDocumento lineas;
    LectorValores lector(texto);
    ASSERT_EQ(LeerDocumento(lector, e, o, &lineas), Formato::Actual);

    int comprobadas = 0;
    // The line of the file begins with `comienzo`, and its text from there on with `contenido`, as the file writes it.
    const auto comprobar = [&](Lugar lugar, const std::string& comienzo, std::string_view contenido) {
        const auto renglones = PartirEnLineas(contenido);
        for (std::size_t n = 0; n < renglones.size(); ++n) {
            for (const int linea : n == 0 ? std::vector<int>{0, 1} : std::vector<int>{static_cast<int>(n) + 1}) {
                lugar.linea = static_cast<std::int16_t>(linea);
                const int numero = lineas.LineaDe(lugar);
                ASSERT_TRUE(numero >= 1 && numero <= static_cast<int>(archivo.size())) << renglones[n];
                const auto enArchivo = archivo[static_cast<std::size_t>(numero) - 1];
                const std::string buscado = ReemplazarTodo(renglones[n], "\"", "\"\"");
                if (n == 0) {
                    EXPECT_TRUE(enArchivo.starts_with(comienzo) && Contiene(enArchivo, "\"" + buscado)) << enArchivo << "\n"
                                                                                                        << buscado;
                } else {
                    EXPECT_TRUE(buscado.empty() ? enArchivo.empty() : enArchivo.starts_with(buscado)) << enArchivo << "\n"
                                                                                                      << buscado;
                }
                ++comprobadas;
            }
        }
    };
    const auto comprobarFilas = [&](Lugar::Parte parte, const auto& tabla, const auto& columnas, int etiqueta) {
        for (int fila = 0; fila < 8; ++fila) {
            const auto& datos = tabla[static_cast<std::size_t>(fila)];
            const std::string comienzo = std::to_string(etiqueta) + ',' + CampoTexto(datos.*columnas[0]) + ',';
            comprobar(Lugar::De(parte, fila, Lugar::sinColumna), comienzo, datos.*columnas[0]);
            for (std::size_t c = 0; c < columnas.size(); ++c) {
                // Behind a text of several lines a record's other cells stand further down.
                const bool enPrimera = c == 0 || (datos.*columnas[c - 1]).find('\n') == std::string::npos;
                comprobar(Lugar::De(parte, fila, static_cast<int>(c)), enPrimera ? comienzo : "", datos.*columnas[c]);
            }
        }
        EXPECT_EQ(lineas.LineaDe(Lugar::De(parte, 8, 0)), 1);
        EXPECT_EQ(lineas.LineaDe(Lugar::De(parte, -1, 0)), 1);
    };
    comprobarFilas(Lugar::Parte::Archivo, e.TablaArchivo, columnasDeArchivo, 1);
    comprobarFilas(Lugar::Parte::Programa, e.TablaTransaccion, columnasDeTransaccion, 2);
    comprobarFilas(Lugar::Parte::Condiciones, e.TablaCondiciones, columnasDeCondicion, 6);
    comprobarFilas(Lugar::Parte::BAPIs, e.TablaBAPIs, columnasDeBAPI, 8);
    comprobar(Lugar::EnTexto(Lugar::Parte::OrigenVariables, 0), "7,", e.OrigenVariables);
    comprobar(Lugar::EnTexto(Lugar::Parte::OrigenForms, 0), "", e.OrigenForms);
    comprobar(Lugar::EnTexto(Lugar::Parte::OrigenSource, 0), "", e.OrigenSource);
    comprobar(Lugar::EnTexto(Lugar::Parte::VariablesGlobales, 0), "", e.VariablesGlobales);
    for (const auto& [opcion, miembro] : opciones) comprobar(Lugar::EnOpcion(opcion), "", o.*miembro);
    EXPECT_GT(comprobadas, 400);
    EXPECT_EQ(lineas.LineaDe({}), 1);
    EXPECT_EQ(lineas.LineaDe(Lugar::EnPreferencia("GSprefijo")), 1);
    EXPECT_EQ(lineas.LineaDe(Lugar::EnOpcion("CommitCheck")), 1);
}

struct Ejecucion {
    int estado;
    std::string salida;
    std::string errores;
};

Ejecucion Correr(std::vector<std::string> argumentos) {
    argumentos.insert(argumentos.begin(), "check");
    std::ostringstream salida;
    std::ostringstream errores;
    const int estado = EjecutarQorgen(argumentos, salida, errores);
    return {estado, salida.str(), errores.str()};
}

TEST(CheckAll, StatusFollowsTheFindings) {
    DirectorioTemporal directorio;
    const std::filesystem::path ejemplos = std::filesystem::path(QOR_TEST_SOURCE_DIR) / "examples";
    std::vector<std::string> documentos = {directorio.Escribir("empty.qor", "").string()};
    for (const char* ejemplo : {"mm01/materials.qor", "va01/orders.qor", "old-format/vendors.qor"}) {
        const auto copia = directorio / std::filesystem::path(ejemplo).filename().string();
        std::filesystem::copy_file(ejemplos / ejemplo, copia);
        documentos.push_back(copia.string());
    }
    int conErrores = 0;
    for (const auto& documento : documentos) {
        const auto corrida = Correr({documento, "--format", "json", "--all"});
        const auto cuenta = Json::parse(corrida.salida);
        const int errores = cuenta["errors"];
        const int avisos = cuenta["warnings"];
        EXPECT_EQ(corrida.estado, errores > 0 ? 1 : 0) << documento;
        EXPECT_EQ(corrida.errores, "") << documento;
        const auto estricta = Correr({documento, "--format", "json", "--all", "--warnings-as-errors"});
        EXPECT_EQ(Json::parse(estricta.salida)["errors"], errores + avisos) << documento;
        EXPECT_EQ(estricta.estado, errores + avisos > 0 ? 1 : 0) << documento;
        ExigirSARIF(Json::parse(Correr({documento, "--all", "--format=sarif"}).salida));
        conErrores += errores > 0 ? 1 : 0;
    }
    EXPECT_TRUE(conErrores > 0 && conErrores < static_cast<int>(documentos.size()));

    // What can't be opened is told in its place, and the others are checked all the same; a document may come twice.
    const auto falta = (directorio / "missing.qor").string();
    const auto corrida = Correr({"--all", falta, documentos[1], documentos[1], "", "--format", "json"});
    EXPECT_EQ(corrida.estado, 1);
    EXPECT_TRUE(corrida.errores.starts_with("335: ")) << corrida.errores;
    const auto objeto = Json::parse(corrida.salida);
    ASSERT_EQ(objeto["documents"].size(), 4U);
    EXPECT_EQ(objeto["documents"][0]["error"]["number"], 335);
    EXPECT_EQ(objeto["documents"][1], objeto["documents"][2]);
    EXPECT_FALSE(objeto["documents"][1].contains("error"));
    EXPECT_EQ(objeto["documents"][3]["error"]["number"], 0);
    const auto texto = Correr({"--all", falta});
    EXPECT_EQ(texto.salida, "");
    EXPECT_TRUE(texto.errores.ends_with("missing.qor: not checked\n1 document, 0 errors, 0 warnings, 0 notes\n")) << texto.errores;
}

}  // namespace
}  // namespace qor::pruebas
