#include <gmock/gmock.h>
#include <zip.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "input/convert_cell.h"
#include "input/csv_reader.h"
#include "input/sheet_date.h"
#include "input/xlsx_elements.h"
#include "input/xlsx_reader.h"
#include "tests/support/failing_calls.h"
#include "tests/support/qorgen_run.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::QorgenDePrueba;
using pruebas::SinEsperarAlDisco;
using testing::ElementsAre;
using testing::HasSubstr;

const std::filesystem::path ejemplos = std::filesystem::path(QOR_TEST_SOURCE_DIR) / "examples";

// qorgen in a directory with the document of an example, "doc.qor", and what its kinds say of the fields.
struct ConversionDePrueba : QorgenDePrueba {
    SinEsperarAlDisco sinEsperar;

    ConversionDePrueba(const std::string& ejemplo, const std::string& clases) {
        std::filesystem::copy_file(ejemplos / ejemplo, directorio / "doc.qor");
        directorio.Escribir("doc.checks", clases);
    }
    int Convertir(const std::vector<std::string>& entradas, const std::vector<std::string>& salidas,
                  const std::vector<std::string>& opciones = {}) {
        std::vector<std::string> argumentos = {"data", "convert", "D/doc.qor"};
        for (const auto& entrada : entradas) argumentos.push_back("D/" + entrada);
        for (const auto& nombre : salidas) argumentos.insert(argumentos.end(), {"-o", "D/" + nombre});
        argumentos.insert(argumentos.end(), opciones.begin(), opciones.end());
        return Correr(argumentos);
    }
    std::string Leer(const std::string& nombre) const { return LeerArchivo(directorio / nombre); }
    // What it printed, without the directory.
    std::string Dicho() const { return ReemplazarTodo(salida, directorio.Ruta().string() + "/", ""); }
};

// A workbook of parts; those that aren't given are those of one sheet with nothing special.
using Partes = std::map<std::string, std::string>;
void EscribirLibro(const std::filesystem::path& ruta, Partes partes) {
    partes.emplace("_rels/.rels",
                   R"(<Relationships><Relationship Id="a" Type="o/officeDocument" Target="xl/workbook.xml"/></Relationships>)");
    partes.emplace("xl/workbook.xml", R"(<workbook xmlns:r="r"><sheets><sheet name="A" r:id="a"/></sheets></workbook>)");
    partes.emplace("xl/_rels/workbook.xml.rels", R"(<Relationships><Relationship Id="a" Type="o/worksheet" Target="/xl/s.xml"/>
        <Relationship Id="b" Type="o/sharedStrings" Target="t.xml"/><Relationship Id="c" Type="o/styles" Target="f.xml"/></Relationships>)");
    partes.emplace("xl/t.xml", "<sst/>");
    partes.emplace("xl/f.xml", "<styleSheet/>");
    int error = 0;
    zip_t* const zip = zip_open(ruta.string().c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    for (const auto& [nombre, texto] : partes) {
        zip_file_add(zip, nombre.c_str(), zip_source_buffer(zip, texto.data(), texto.size(), 0), 0);
    }
    if (zip_close(zip) != 0) throw std::runtime_error("no workbook");
}

std::string Hoja(const std::string& filas) { return "<worksheet><sheetData>" + filas + "</sheetData></worksheet>"; }

// ---- There and back ----

class Azar {
public:
    int Hasta(int n) { return std::uniform_int_distribution<int>(0, n - 1)(azar_); }

    // A value of at most so many characters: numbers and dates in every form that their kind allows, and other texts of every sort.
    std::string Valor(std::size_t ancho, char clase) {
        if (clase == 'n') return Uno(numeros, ancho);
        if (clase == 'd') return Uno(dias, ancho);
        if (clase == 'y') return Uno(diasSeguidos, ancho);
        std::string valor;
        if (Hasta(3) > 0) {
            valor = Uno(especiales, ancho);
        } else {
            for (int i = Hasta(static_cast<int>(ancho) + 1); i > 0; --i)
                valor += static_cast<char>(Hasta(2) ? 'a' + Hasta(26) : 0xA1 + Hasta(90));
        }
        return clase == 'r' && valor.find_first_not_of(' ') == std::string::npos ? "x" : valor;
    }

private:
    using Textos = std::vector<std::string>;
    static const Textos numeros;
    static const Textos dias;
    static const Textos diasSeguidos;
    static const Textos especiales;

    std::string Uno(const Textos& textos, std::size_t ancho) {
        const auto& texto = textos[static_cast<std::size_t>(Hasta(static_cast<int>(textos.size())))];
        return texto.size() <= ancho ? texto : texto.substr(0, &textos == &especiales ? ancho : 0);
    }

    std::mt19937 azar_{20041224};
};

const Azar::Textos Azar::numeros = {"",     "0",  "007", "12,50", "-12,500", "1.234,5", "12345678901",       "5-",
                                    "-0,0", "-0", "1,",  ",5",    "+3",      "  7",     "0,123456789012345", "999999999999999"};
const Azar::Textos Azar::dias = {"", "24.12.2004", "01.01.1900", "28.02.1900", "01.03.1900", "29.02.2000", "31.12.9999"};
const Azar::Textos Azar::diasSeguidos = {"", "20041224", "19000101", "19000228", "19000301"};
const Azar::Textos Azar::especiales = {
    "",     "0",  "007",  "12,50", "12345678901", "1E5",     "24.12.2004",       "20041224", "_x0041_",      "\"a\"\"", "a;b,c",
    "=1+1", "'1", "#N/A", "TRUE",  "-0",          "  right", "\x80\xE4\xDF\xA0", "a & <b>",  "\x01\x1F\x7F", "_x000A_x"};

struct CasoDeIda {
    const char* ejemplo;
    std::vector<std::string> ids;                  // of the kinds; empty: files of their own
    std::vector<std::vector<std::size_t>> anchos;  // of the kinds
    std::vector<std::string> clases;               // of their fields, as Azar::Valor has them
    bool tabuladores = false;
};

// The lines of the files, each with something in it.
std::vector<std::string> HacerArchivos(const CasoDeIda& caso, Azar& azar) {
    std::vector<std::string> archivos(caso.ids.empty() ? caso.anchos.size() : 1);
    for (int i = 0; i < 300; ++i) {
        const auto clase = static_cast<std::size_t>(azar.Hasta(static_cast<int>(caso.anchos.size())));
        std::string linea = caso.ids.empty() ? "" : caso.ids[clase];
        const auto id = linea.size();
        for (std::size_t campo = 0; campo < caso.anchos[clase].size(); ++campo) {
            const auto ancho = caso.anchos[clase][campo];
            const auto valor = azar.Valor(ancho, caso.clases[clase][campo]);
            if (caso.tabuladores) {
                linea += valor + '\t';
            } else {
                linea += valor + std::string(ancho - valor.size(), ' ');
            }
        }
        if (caso.tabuladores) linea.pop_back();
        if (!caso.tabuladores) linea.erase(std::max(linea.find_last_not_of(' ') + 1, id));
        if (caso.ids.empty() && linea.find_first_not_of(" \t") == std::string::npos) continue;
        archivos[caso.ids.empty() ? clase : 0] += linea + "\r\n";
    }
    return archivos;
}

TEST(Conversion, ThereAndBackIsTheSame) {
    const std::vector<CasoDeIda> casos = {
        {"mm01/materials.qor", {}, {{18, 1, 4, 40, 3, 9, 17, 3}}, {"r..n.yn."}},
        {"formulas/vendors.qor", {}, {{10, 4, 4, 4, 35, 10, 35, 10, 35, 3, 1, 10, 10, 3, 5, 16}}, {"d...n..........."}, true},
        {"va01/orders.qor", {}, {{20, 4, 4, 2, 2, 10}, {20, 18, 13, 3}}, {"d....n", "dr.."}},
        {"va01-one-file/orders.qor", {"H", "I"}, {{20, 4, 4, 2, 2, 10}, {18, 13, 3}}, {"d....n", "r.."}},
    };
    Azar azar;
    for (const auto& caso : casos) {
        ConversionDePrueba prueba(
            caso.ejemplo,
            "MATNR required\nBRGEW number ,\nMAKTX number ,\nBSTKD date DD.MM.YYYY\nKUNNR number ,\nLIFNR date "
            "DD.MM.YYYY\nNAME1 number ,\nMATKL date YYYYMMDD\n");
        const auto archivos = HacerArchivos(caso, azar);
        std::vector<std::string> nombres;
        std::vector<std::string> devueltos;
        for (std::size_t i = 0; i < archivos.size(); ++i) {
            nombres.push_back("in" + std::to_string(i) + ".txt");
            devueltos.push_back("out" + std::to_string(i) + ".txt");
            prueba.directorio.Escribir(nombres.back(), archivos[i]);
        }
        for (const std::string forma : {"xlsx", "csv", "tsv"}) {
            std::vector<std::string> tablas;
            for (std::size_t i = 0; i < (forma == "xlsx" ? 1 : caso.anchos.size()); ++i) {
                tablas.push_back("t" + std::to_string(i) + "." + forma);
            }
            const std::string donde = std::string(caso.ejemplo) + " " + forma;
            ASSERT_EQ(prueba.Convertir(nombres, tablas), estadoBien) << donde << prueba.salida << prueba.errores;
            ASSERT_EQ(prueba.Convertir(tablas, devueltos), estadoBien) << donde << prueba.salida << prueba.errores;
            for (std::size_t i = 0; i < archivos.size(); ++i) EXPECT_EQ(prueba.Leer(devueltos[i]), archivos[i]) << donde;
        }
    }
}

// ---- Cells ----

struct CasoDeCelda {
    std::string celda, codigo, clase, mostrada, guardada;
};

// "!" and a part of the reason stand for a cell that has no place.
std::string Tomar(const CeldaDeHoja& celda, const CasoDeCelda& caso, bool comoGuardado) {
    ClaseDeCampo clase;
    if (!caso.clase.empty()) clase.tipo = caso.clase.size() == 1 ? ClaseDeCampo::Tipo::Numero : ClaseDeCampo::Tipo::Fecha;
    if (caso.clase.size() == 1) clase.decimal = caso.clase[0];
    clase.formato = caso.clase;
    CampoDeRegistro campo;
    campo.ancho = 30;
    std::string valor;
    std::string motivo;
    const bool cabe = ConversorDeCampo(campo, &clase, false, {comoGuardado, "", 0}).ALayout(celda, valor, motivo);
    const auto& esperado = comoGuardado ? caso.guardada : caso.mostrada;
    if (cabe) return valor;
    return esperado.starts_with("!") && Contiene(motivo, esperado.substr(1)) ? esperado : "!" + motivo;
}

// Those of tests/expected/cells.txt.
std::vector<CasoDeCelda> LeerCeldas() {
    const std::string texto = LeerArchivo(QOR_TEST_SOURCE_DIR "/tests/expected/cells.txt");
    std::vector<CasoDeCelda> celdas;
    for (auto linea : PartirEnLineas(texto)) {
        if (linea.empty() || linea.starts_with('#')) continue;
        auto& caso = celdas.emplace_back();
        for (auto* parte : {&caso.celda, &caso.codigo, &caso.clase, &caso.mostrada, &caso.guardada}) {
            *parte = AntesDe(linea, '|');
            linea = DespuesDe(linea, '|');
        }
        if (!Contiene(caso.celda, ">")) caso.celda = "><v>" + caso.celda + "</v>";
    }
    return celdas;
}

TEST(Conversion, CellsAsTheyAreDisplayedAndStored) {
    const auto celdas = LeerCeldas();
    ASSERT_GT(celdas.size(), 50U);
    DirectorioTemporal directorio;
    for (const bool desde1904 : {false, true}) {
        std::string filas;
        std::string formatos;
        std::string estilos;
        for (std::size_t i = 0; i < celdas.size(); ++i) {
            const auto& codigo = celdas[i].codigo;
            const bool fijo = codigo.size() <= 2 && codigo.find_first_not_of("0123456789") == std::string::npos;
            const auto numero = fijo ? codigo : std::to_string(164 + i);
            if (!fijo) {
                formatos += "<numFmt numFmtId=\"" + numero + "\" formatCode=\"" + ReemplazarTodo(codigo, "\"", "&quot;") + "\"/>";
            }
            estilos += "<xf numFmtId=\"" + numero + "\"/>";
            filas += "<row><c s=\"" + std::to_string(i) + "\"" + celdas[i].celda + "</c></row>";
        }
        Partes partes = {
            {"xl/s.xml", Hoja(ReemplazarTodo(filas, ">0,<", ">0,&#60;"))},
            {"xl/t.xml", "<sst><si><t>sh\xC3\xA4red</t></si></sst>"},
            {"xl/f.xml", "<styleSheet><numFmts>" + formatos + "</numFmts><cellXfs>" + estilos + "</cellXfs></styleSheet>"}};
        if (desde1904) {
            partes["xl/workbook.xml"] =
                R"(<workbook xmlns:r="r"><workbookPr date1904="1"/><sheets><sheet name="A" r:id="a"/></sheets></workbook>)";
        }
        EscribirLibro(directorio / "cells.xlsx", partes);
        LibroXlsx libro(directorio / "cells.xlsx");
        const auto fuente = libro.Abrir(libro.Hojas().front());
        FilaDeHoja fila;
        for (auto caso : celdas) {
            ASSERT_TRUE(fuente->Siguiente(fila));
            // The other system has the same texts for days that are four years and a day later.
            if (desde1904 && caso.mostrada == "24.12.2004") caso.mostrada = "25.12.2008";
            if (desde1904 && caso.celda.find("38345") == std::string::npos) continue;
            if (desde1904 && caso.mostrada != "25.12.2008") continue;
            EXPECT_EQ(Tomar(fila.celdas.at(0), caso, false), caso.mostrada) << caso.celda << caso.codigo;
            if (!desde1904) EXPECT_EQ(Tomar(fila.celdas.at(0), caso, true), caso.guardada) << caso.celda << caso.codigo;
        }
        EXPECT_FALSE(fuente->Siguiente(fila));
    }
}

// ---- What does not fit ----

TEST(Conversion, WhatDoesNotFitIsToldAndNothingIsWritten) {
    ConversionDePrueba prueba("mm01/materials.qor", "BRGEW number ,\n");
    prueba.directorio.Escribir("in.csv",
                               "matnr;BRGEW;MAKTX;Remark\r\nPUMP-0100;12,5;Pump;\r\n\r\nPUMP-012345678901234;1;Pump;\r\n"
                               "X;1;\"two\r\nlines\";\r\n;;;only here\r\nSEAL-1;3;Sealing;\r\n");
    EXPECT_EQ(prueba.Convertir({"in.csv"}, {"out.txt"}), estadoRechazado);
    EXPECT_EQ(
        prueba.Dicho(),
        "in.csv:1:4: error: \"Remark\": the heading is no field of the records [cell-does-not-fit]\n"
        "in.csv:4:1: error: MATNR \"PUMP-012345678901234\": the field takes 18 characters, and the value has 20 "
        "[cell-does-not-fit]\n"
        "in.csv:5:3: error: MAKTX \"two\\x0D\\x0Alines\": the cell has a line end, which ends a record [cell-does-not-fit]\n");
    EXPECT_EQ(prueba.errores, "FILE 3, 3 errors; nothing was written\n");
    EXPECT_FALSE(Existe(prueba.directorio / "out.txt"));

    EXPECT_EQ(prueba.Convertir({"in.csv"}, {"out.txt"}, {"--leave-out", "--other-columns", "--decimals", ","}), estadoRechazado);
    EXPECT_EQ(prueba.errores, "FILE 3, 2 errors; records left out: 2\n");
    EXPECT_EQ(PartirEnLineas(prueba.Leer("out.txt")).size(), 3u);  // the row with nothing but a remark is a blank record
    EXPECT_EQ(prueba.Convertir({"in.csv"}, {"in.csv"}, {"--to", "layout"}), estadoMalUso);
    EXPECT_EQ(prueba.Convertir({"in.csv"}, {"out.xlsx"}), estadoMalUso);
    EXPECT_EQ(prueba.Convertir({"in.csv", "b.csv"}, {"out.txt"}), estadoMalUso);
}

TEST(Conversion, ItemsGoWithTheirOrder) {
    ConversionDePrueba prueba("va01-one-file/orders.qor", "");
    const auto celda = [](const std::string& texto) { return "<c t=\"inlineStr\"><is><t>" + texto + "</t></is></c>"; };
    const auto fila = [&celda](const std::vector<std::string>& textos) {
        std::string celdas_;
        for (const auto& texto : textos) celdas_ += celda(texto);
        return "<row>" + celdas_ + "</row>";
    };
    Partes partes = {
        {"xl/workbook.xml",
         R"(<x:workbook xmlns:q="r"><x:sheets><x:sheet name="Items" q:id="b"/><x:sheet name="Orders" q:id="a"/></x:sheets></x:workbook>)"},
        {"xl/_rels/workbook.xml.rels", R"(<Relationships><Relationship Id="a" Type="o/worksheet" Target="a.xml"/>
            <Relationship Id="b" Type="o/worksheet" Target="b.xml"/></Relationships>)"},
        {"xl/a.xml", Hoja(fila({"remark"}) + fila({"BSTKD", "#"}) + fila({"first", "1"}) +
                          fila({"much too long for an order", "2"}) + fila({"third", "3"}) + fila({"fourth", "4"}))},
        {"xl/b.xml", Hoja("<row/>" + fila({"#", "MATNR"}) + fila({"1", "A"}) + fila({"1", "B"}) + fila({"2", "C"}) +
                          fila({"3", "D"}) + fila({"4", "E"}) + fila({"4", "much too long for a material"}))}};
    EscribirLibro(prueba.directorio / "in.xlsx", partes);
    const std::vector<std::string> opciones = {"--sheet", "orders", "--sheet", "Items", "--heading-row", "2", "--leave-out"};
    EXPECT_EQ(prueba.Convertir({"in.xlsx"}, {"out.txt"}, opciones), estadoRechazado) << prueba.errores;
    EXPECT_EQ(prueba.Leer("out.txt"), "Hfirst\r\nIA\r\nIB\r\nHthird\r\nID\r\n");
    EXPECT_EQ(
        prueba.Dicho(),
        "in.xlsx:Orders!A4: error: BSTKD \"much too long for an order\": the field takes 20 characters, and the value has 26 "
        "[cell-does-not-fit]\n"
        "in.xlsx:Items!B8: error: MATNR \"much too long for a material\": the field takes 18 characters, and the value has 28 "
        "[cell-does-not-fit]\n");
    EXPECT_EQ(prueba.errores, "FILE 2, SLOOP_1 3, 2 errors; records left out: 5\n");

    // Nobody knows the order of an item whose number is wrong.
    partes["xl/b.xml"] = Hoja("<row/>" + fila({"#", "MATNR"}) + fila({"3", "A"}) + fila({"1", "B"}) + fila({"x", "C"}));
    EscribirLibro(prueba.directorio / "in.xlsx", partes);
    EXPECT_EQ(prueba.Convertir({"in.xlsx"}, {"none.txt"}, opciones), estadoRechazado);
    EXPECT_THAT(prueba.Dicho(), HasSubstr("Items!A4: error: \"1\": the number is smaller"));
    EXPECT_THAT(prueba.Dicho(), HasSubstr("Items!A5: error: \"x\": the cell has no whole number"));
    EXPECT_FALSE(Existe(prueba.directorio / "none.txt"));
}

// The first values of the rows of a table, or of the lines of a file.
std::string Primeros(const std::string& texto) {
    std::string primeros;
    for (const auto linea : PartirEnLineas(texto)) {
        if (!linea.empty()) primeros.append(linea.substr(0, linea.find_first_of("; "))).append("|");
    }
    return primeros;
}

// Orders with their items are left out as a whole: with ids in one file, and joined by keys in files of their own.
TEST(Conversion, AnOrderIsLeftOutWithAllItsItems) {
    const auto ancho = [](std::string texto, std::size_t n) {
        texto.resize(n, ' ');
        return texto;
    };
    const auto id = [&](char c, const std::string& valor, const std::string& cantidad = "") {
        return c + ancho(valor, c == 'H' ? 20 : 18) + cantidad + "\n";
    };
    ConversionDePrueba unico("va01-one-file/orders.qor", "KWMENG number ,\n");
    unico.directorio.Escribir("in.txt", id('H', "first") + id('I', "A", "1,5") + id('H', "second") + id('I', "B") +
                                            id('I', "C", "0.5") + "X\n" + id('H', "third"));
    EXPECT_EQ(unico.Convertir({"in.txt"}, {"o.csv", "i.csv"}, {"--leave-out"}), estadoRechazado);
    EXPECT_EQ(unico.Dicho(),
              "in.txt:5:20: error: KWMENG \"0.5\": no number with \",\" as its decimal sign [not-a-number]\n"
              "in.txt:6:1: error: \"X\": begins with no id of a record: H, I [unknown-record]\n");
    EXPECT_EQ(unico.errores, "FILE 2, SLOOP_1 1, 2 errors; records left out: 4\n");
    EXPECT_EQ(Primeros(unico.Leer("o.csv")), "\xEF\xBB\xBF#|1|7|");
    EXPECT_EQ(Primeros(unico.Leer("i.csv")), "\xEF\xBB\xBF#|2|");

    ConversionDePrueba varios("va01/orders.qor", "KWMENG number ,\nKUNNR pattern \\d+\n");
    const auto orden = [&](const std::string& numero, const std::string& cliente) { return ancho(numero, 32) + cliente + "\n"; };
    const auto partida = [&](const std::string& numero, const std::string& material, const std::string& cantidad) {
        return ancho(numero, 20) + ancho(material, 18) + cantidad + "\n";
    };
    varios.directorio.Escribir("o.txt", orden("1", "10") + orden("2", "20") + orden("3", "X") + orden("4", "40"));
    varios.directorio.Escribir("i.txt", partida("4", "A", "1") + partida("2", "B", "1") + partida("2", "C", "one") +
                                            partida("3", "D", "1") + partida("9", "E", "1"));
    EXPECT_EQ(varios.Convertir({"o.txt", "i.txt"}, {"o.csv", "i.csv"}, {"--leave-out"}), estadoRechazado);
    EXPECT_EQ(varios.errores, "FILE 2, SLOOP_1 2, 2 errors; records left out: 5\n");
    EXPECT_EQ(Primeros(varios.Leer("o.csv")),
              "\xEF\xBB\xBF"
              "BSTKD|1|4|");
    EXPECT_EQ(Primeros(varios.Leer("i.csv")),
              "\xEF\xBB\xBF"
              "BSTKD|4|9|");

    varios.directorio.Escribir("o.csv", "BSTKD;KUNNR\n1;10\n2;20\n3;X\n4;40\n");
    varios.directorio.Escribir("i.csv", "KWMENG;BSTKD\n1;4\n1;2\none;2\n1;3\n1;9\n");
    EXPECT_EQ(varios.Convertir({"o.csv", "i.csv"}, {"o2.txt", "i2.txt"}, {"--leave-out"}), estadoRechazado);
    EXPECT_EQ(varios.Dicho(),
              "o.csv:4:2: error: KUNNR \"X\": does not fit the pattern \\d+ [pattern]\n"
              "i.csv:4:1: error: KWMENG \"one\": no number with \",\" as its decimal sign [not-a-number]\n");
    EXPECT_EQ(Primeros(varios.Leer("o2.txt")), "1|4|");
    EXPECT_EQ(Primeros(varios.Leer("i2.txt")), "4|9|");

    // A conversion of the key may join other records than the file does.
    const std::string clave = "\"The customer's order number relates orders and items\",\"";
    varios.directorio.Escribir("doc.qor", ReemplazarTodo(varios.Leer("doc.qor"), clave, clave + "TRANSLATE BSTKD TO UPPER CASE."));
    const std::vector<std::pair<std::vector<std::string>, std::vector<std::string>>> pedidos = {
        {{"o.txt", "i.txt"}, {"o3.csv", "i3.csv"}}, {{"o.csv", "i.csv"}, {"o3.txt", "i3.txt"}}};
    for (const auto& [entradas, salidas] : pedidos) {
        EXPECT_EQ(varios.Convertir(entradas, salidas, {"--leave-out"}), estadoRechazado);
        EXPECT_THAT(varios.errores, HasSubstr("records can't be left out: BSTKD: "));
        EXPECT_FALSE(Existe(varios.directorio / salidas.front()));
    }
}

// Where a whole file or table is wrong, nothing is written, also with --leave-out.
TEST(Conversion, WhatIsWrongWithAWholeFileIsToldOnce) {
    struct Caso {
        const char* nombre;
        std::string texto;
        std::vector<std::string> opciones;
        std::string dicho;  // or a part of the message
    };
    const std::string valores = "MATNR;MTART;BRGEW\n";
    const std::vector<Caso> casos = {
        {"in.txt", "caf\xC3\xA9\n0123456789\n", {}, "in.txt:1: error: the file is in UTF-8"},
        {"in.txt",
         std::string("\xFF\xFE"
                     "a\0",
                     4),
         {},
         "in.txt:1: error: a byte order mark of UTF-16"},
        {"in.csv", "MTART\nROH\nHAWA\n", {}, "in.csv:1: error: MATNR: required, but no column has the heading [missing-value]\n"},
        {"in.csv", "MATNR;Remark\nA;x\n", {}, "in.csv:1:2: error: \"Remark\": the heading is no field of the records [cell-does"},
        {"in.csv",
         "Article;Kind\nA;ROH\n",
         {"--other-columns"},
         "none of the headings in row 1 of the table FILE is a field: "
         "Article, Kind; wanted are MATNR, MBRSH, MTART,"},
        {"in.csv", valores, {"--sheet", "A"}, "--sheet: only sheets of a workbook"},
        {"in.csv", valores, {"--columns", "order", "--heading-row", "0"}, "--separator: without headings"},
        {"in.csv", valores, {"--max-findings", "-1"}, "--max-findings: \"-1\""},
        {"in.xlsx", "", {"--sheet", "A", "--sheet", "B"}, "--sheet: 2 sheets for 1 kind of records"},
    };
    ConversionDePrueba prueba("mm01/materials.qor", "MATNR required\nNOFIELD required\n");
    for (const auto& caso : casos) {
        prueba.directorio.Escribir(caso.nombre, caso.texto);
        const std::string salida = std::string(caso.nombre) == "in.txt" ? "out.csv" : "out.txt";
        auto opciones = caso.opciones;
        opciones.emplace_back("--leave-out");
        EXPECT_NE(prueba.Convertir({caso.nombre}, {salida}, opciones), estadoBien);
        EXPECT_THAT(prueba.Dicho() + prueba.errores, HasSubstr(caso.dicho));
        EXPECT_FALSE(Existe(prueba.directorio / salida)) << caso.dicho;
    }
    prueba.directorio.Escribir("in.csv", "MATNR\nA\n");
    EXPECT_EQ(prueba.Convertir({"in.csv"}, {"out.txt"}), estadoBien);
    EXPECT_THAT(prueba.errores, HasSubstr("the document has no field NOFIELD"));
}

// What is written is what the kinds say, in both directions.
TEST(Conversion, ValuesAreWhatTheirKindsSay) {
    const std::string clases = "MATNR required\nBRGEW number .\nMTART list values.txt\nMEINS pattern [A-Z]+\nMATKL date YYYYMMDD\n";
    struct Caso {
        const char* campo;
        const char* valor;
        const char* hallazgo;  // empty: it fits
    };
    const std::vector<Caso> casos = {
        {"MATNR", "", "missing-value"},       {"MTART", "hawa", "not-in-list"},
        {"MEINS", "kg", "pattern"},           {"MATKL", "20040230", "not-a-date"},
        {"BRGEW", "1,5", "not-a-number"},     {"BRGEW", "0,870", "not-a-number"},
        {"BRGEW", "012,345", "not-a-number"}, {"BRGEW", "1,870", ""},
        {"BRGEW", "10,870,000.5", ""},        {"BRGEW", "0.870", ""},
    };
    ConversionDePrueba prueba("mm01/materials.qor", clases);
    prueba.directorio.Escribir("values.txt", "HAWA\nROH\n");
    for (const auto& caso : casos) {
        const std::string campo = caso.campo;
        std::vector<std::pair<std::string, std::size_t>> campos = {{"MATNR", 18}, {"MBRSH", 1}, {"MTART", 4}, {"MAKTX", 40},
                                                                   {"MEINS", 3},  {"MATKL", 9}, {"BRGEW", 17}};
        std::string titulos;
        std::string fila;
        std::string linea;
        for (const auto& [nombre, ancho] : campos) {
            const std::string valor = campo == nombre ? caso.valor : nombre == "MATNR" ? "A" : "";
            titulos += nombre + ";";
            fila += valor + ";";
            linea += valor + std::string(ancho - valor.size(), ' ');
        }
        prueba.directorio.Escribir("in.csv", titulos + "GEWEI\n" + fila + "KG\n");
        prueba.directorio.Escribir("in.txt", linea + "KG\n");
        for (const bool alLayout : {true, false}) {
            const int estado = prueba.Convertir({alLayout ? "in.csv" : "in.txt"}, {alLayout ? "out.txt" : "out.xlsx"});
            const std::string hallazgo = caso.hallazgo;
            EXPECT_EQ(estado, hallazgo.empty() ? estadoBien : estadoRechazado) << campo << caso.valor << prueba.salida;
            const auto valor = std::string(caso.valor).empty() ? "" : " \"" + std::string(caso.valor) + '"';
            if (!hallazgo.empty()) EXPECT_THAT(prueba.Dicho(), HasSubstr("error: " + campo + valor + ": "));
            if (!hallazgo.empty()) EXPECT_THAT(prueba.Dicho(), testing::EndsWith("[" + hallazgo + "]\n"));
        }
    }
}

TEST(Conversion, TextsGetTheFormOfTheFile) {
    ConversionDePrueba prueba("fb01/postings.qor", "BLDAT date DDMMYYYY\nWRBTR number .\n");
    prueba.directorio.Escribir("in.txt",
                               "30092004SA100030092004EUR  RENT 09/2004    Office rent              470000    113100    4250.00\n");
    const std::vector<std::string> opciones = {"--dates", "YYYY-MM-DD", "--decimals", ",", "--separator", ","};
    ASSERT_EQ(prueba.Convertir({"in.txt"}, {"out.csv"}, opciones), estadoBien) << prueba.errores;
    EXPECT_THAT(prueba.Leer("out.csv"), HasSubstr("\r\n2004-09-30,SA,1000,30092004,EUR,"));
    EXPECT_THAT(prueba.Leer("out.csv"), HasSubstr(",\"4250,00\","));
    ASSERT_EQ(prueba.Convertir({"out.csv"}, {"back.txt"}, opciones), estadoBien) << prueba.errores;
    EXPECT_EQ(prueba.Leer("back.txt"), prueba.Leer("in.txt"));
}

// ---- Files of values ----

TEST(Csv, RowsAreReadByTheirGrammarAndEncoding) {
    DirectorioTemporal directorio;
    const auto leer = [&directorio](const std::string& texto, char separador) {
        directorio.Escribir("a.csv", texto);
        std::string leido;
        try {
            LectorDeCsv lector(directorio / "a.csv", separador);
            FilaDeHoja fila;
            while (lector.Siguiente(fila)) {
                leido += std::to_string(fila.numero) + ":";
                for (const auto& celda : fila.celdas) leido += (celda.conFaltas ? "!" : "") + celda.texto + "|";
                leido += "\n";
            }
        } catch (const FalloDeArchivo& fallo) {
            leido += fallo.what();
        }
        return leido;
    };
    EXPECT_EQ(leer("a;b\r\nc;d", ';'), "1:a|b|\n2:c|d|\n");
    EXPECT_EQ(leer("\"a;\"\"\";\"\r\n\r\n\"\nb\r\rc\n", ';'), "1:a;\"|\r\n\r\n|\n4:b||\n5:||\n6:c||\n");
    EXPECT_EQ(leer("a\"b\"\tc\n", '\t'), "1:a\"b\"|c|\n");
    EXPECT_EQ(leer("\xEF\xBB\xBF\xC3\xA4;\xCE\xA9\n", ';'), "1:\xE4|!?|\n");
    EXPECT_EQ(leer("\xC3\xA4\n", ';'), "1:\xE4|\n");
    EXPECT_EQ(leer("\xC3\xA4\n\xE4", ';'), "1:\xC3\xA4|\n2:\xE4|\n");
    EXPECT_EQ(leer("a\n\n\"b", ';'), "1:a|\n2:|\nLine 3: a quote is opened and not closed");
    EXPECT_EQ(leer("a\n\"b\"c\n", ';'), "1:a|\nLine 2: something stands behind a closing quote");
    EXPECT_THAT(leer(std::string("\xFF\xFE"
                                 "a\0",
                                 4),
                     ';'),
                HasSubstr("UTF-16"));

    const auto separador = [&directorio](const std::string& texto) {
        directorio.Escribir("a.csv", texto);
        return SeparadorDe(directorio / "a.csv", 1, {"A", "B", "C,D"});
    };
    EXPECT_EQ(separador("X;Y\n1,2,3\n"), ';');
    EXPECT_EQ(separador("\"X;Y\",Z\n"), ',');
    EXPECT_EQ(separador("a;C,D\n"), ';');
    EXPECT_EQ(separador("a;x,y\n"), 0);
}

// ---- Workbooks ----

TEST(Workbook, ElementsAreCutWhereverThePiecesEnd) {
    const std::string texto =
        "<?xml version='1.0'?><x:s a='<row>'><!-- <row> --><x:row r=\"a>b\"><c/><![CDATA[</row>]]></x:row><rows/><row/><row ></row>"
        "<y:row>\xE2\x82\xAC</y:row></x:s>";
    for (std::size_t trozo = 1; trozo < 20; ++trozo) {
        std::size_t lugar = 0;
        PartidorDeElementos partidor(
            [&](char* donde, std::size_t cuanto) {
                const auto leidos = texto.copy(donde, std::min(trozo, cuanto), lugar);
                lugar += leidos;
                return leidos;
            },
            [](const std::string& motivo) { throw FalloDeEjecucion(motivo); }, "row", 1000);
        std::vector<std::string> elementos;
        std::size_t largo = 0;
        while (const char* const elemento = partidor.Siguiente(largo)) elementos.emplace_back(elemento, largo);
        EXPECT_THAT(elementos, ElementsAre("<x:row r=\"a>b\"><c/><![CDATA[</row>]]></x:row>", "<row/>", "<row ></row>",
                                           "<y:row>\xE2\x82\xAC</y:row>"));
    }
}

TEST(Workbook, BadFilesAreToldAndNeverHarm) {
    DirectorioTemporal directorio;
    const auto leer = [&directorio]() -> std::string {
        try {
            LibroXlsx libro(directorio / "a.xlsx");
            const auto filas = libro.Abrir(libro.Hojas().front());
            FilaDeHoja fila;
            while (filas->Siguiente(fila)) {
            }
            return "read";
        } catch (const FalloDeArchivo& fallo) {
            return fallo.what();
        }
    };
    const auto conPartes = [&](const Partes& partes) {
        EscribirLibro(directorio / "a.xlsx", partes);
        return leer();
    };
    const auto conBytes = [&](const std::string& bytes) {
        directorio.Escribir("a.xlsx", bytes);
        return leer();
    };
    const std::string bien = Hoja("<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>");
    EXPECT_EQ(conPartes({{"xl/s.xml", bien}}), "read");
    const auto entero = LeerArchivo(directorio / "a.xlsx");
    EXPECT_THAT(conBytes(entero.substr(0, entero.size() / 2)), HasSubstr("cut off"));
    EXPECT_THAT(conBytes(""), HasSubstr("no workbook"));
    const std::string compuesto = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
    EXPECT_THAT(conBytes(compuesto + std::string(600, '\0')), HasSubstr("older format"));
    std::string cifrado;
    for (const char c : std::string("EncryptedPackage")) cifrado += {c, '\0'};
    EXPECT_THAT(conBytes(compuesto + std::string(600, '\0') + cifrado), HasSubstr("without a password"));

    EXPECT_THAT(conPartes({}), HasSubstr("no part xl/s.xml"));
    EXPECT_THAT(conPartes({{"_rels/.rels", "<Relationships/>"}}), HasSubstr("without a workbook"));
    EXPECT_THAT(conPartes({{"mimetype", "x"}, {"content.xml", "x"}}), HasSubstr("OpenDocument"));
    EXPECT_THAT(conPartes({{"xl/workbook.xml", "<workbook"}}), HasSubstr("no XML"));
    EXPECT_THAT(conPartes({{"xl/workbook.xml", "<workbook/>"}}), HasSubstr("no sheet"));
    const std::vector<std::pair<std::string, std::string>> hojas = {
        {bien.substr(0, bien.size() - 30), "ends in the middle"},
        {Hoja("<row><c></row>"), "no XML"},
        {Hoja("<row r=\"2\"/><row r=\"1\"/>"), "order"},
        {Hoja("<row r=\"1048577\"/>"), "order"},
        {Hoja("<row><c r=\"ZZZZ1\"/></row>"), "no column"},
        {Hoja("<row r=\"2\"><c r=\"B2\"><v>1</v></c><c><v>2</v></c><c r=\"B2\"/></row>"),
         "sheet A, B2: two cells have the same place"},
        {Hoja("<row r=\"2\"><c r=\"A3\"/></row>"), "sheet A, A3: the cell stands in row 2"},
        {Hoja("<row/><row><c/><c t=\"s\"><v>3</v></c></row>"), "sheet A, B2: its shared string is missing"},
        {Hoja("<row>" + std::string(20 << 20, 'x') + "</row>"), "16 megabytes"},
        {Hoja("<row>" + std::string(80 << 20, ' ') + "</row>"), "no workbook is"},
        {"\xFF\xFE<\0", "UTF-8"},
    };
    for (const auto& [hoja, motivo] : hojas) EXPECT_THAT(conPartes({{"xl/s.xml", hoja}}), HasSubstr(motivo));
    // A part that is larger than the archive says in its directory, which stands at the end.
    const auto larga = Hoja("<row>" + std::string(5000, ' ') + "</row>");
    EscribirLibro(directorio / "a.xlsx", {{"xl/s.xml", larga}});
    auto bytes = LeerArchivo(directorio / "a.xlsx");
    const auto lugar =
        bytes.rfind(std::string({static_cast<char>(larga.size() & 0xFF), static_cast<char>(larga.size() >> 8), 0, 0}));
    ASSERT_NE(lugar, std::string::npos);
    bytes.replace(lugar, 2, std::string("\x10\0", 2));
    EXPECT_THAT(conBytes(bytes), HasSubstr("damaged"));
}

// A sheet that nobody sees is read only where it is named.
TEST(Workbook, HiddenSheetsAreNotReadUnasked) {
    ConversionDePrueba prueba("mm01/materials.qor", "");
    const auto leer = [&](const std::string& hojas, const std::vector<std::string>& opciones = {}) {
        EscribirLibro(prueba.directorio / "in.xlsx",
                      {{"xl/workbook.xml", "<workbook xmlns:r=\"r\"><sheets>" + hojas + "</sheets></workbook>"},
                       {"xl/s.xml", Hoja("<row><c t=\"inlineStr\"><is><t>MATNR</t></is></c></row>")}});
        prueba.Convertir({"in.xlsx"}, {"out.txt"}, opciones);
        return prueba.errores;
    };
    const std::string oculta = R"(<sheet name="FILE" state="hidden" r:id="a"/>)";
    EXPECT_THAT(leer(oculta), HasSubstr("All sheets of the workbook are hidden"));
    EXPECT_EQ(leer(oculta, {"--sheet", "FILE"}), "FILE 0, 0 errors\n");
    EXPECT_EQ(leer(oculta + R"(<sheet name="Other" r:id="a"/>)"), "FILE 0, 0 errors\n");
}

TEST(Workbook, TheTemplateIsReadBackAndHasTheRules) {
#ifdef __SANITIZE_ADDRESS__
    // The library that writes workbooks copies the formula of a list twice, and forgets the first copy.
    const __lsan::ScopedDisabler sinFugas;
#endif
    ConversionDePrueba prueba(
        "mm01/materials.qor",
        "MATNR required\nMTART list values.txt\nBRGEW number ,\nMATKL date DD.MM.YYYY\nMEINS pattern [A-Z]+\n");
    prueba.directorio.Escribir("values.txt", "HAWA\nROH\n");
    ASSERT_EQ(prueba.Correr({"data", "template", "D/doc.qor", "-o", "D/t.xlsx"}), estadoBien) << prueba.errores;
    ASSERT_EQ(prueba.Convertir({"t.xlsx"}, {"out.txt"}), estadoBien) << prueba.errores;
    EXPECT_EQ(prueba.Leer("out.txt"), "");
    PaqueteXlsx paquete(prueba.directorio / "t.xlsx");
    const auto hoja = paquete.LeerTodo("xl/worksheets/sheet1.xml");
    for (
        const char* const regla :
        {R"(<dataValidation type="list" allowBlank="1" showInputMessage="1" showErrorMessage="1" error="The value is not in the list." sqref="C2:C1048576"><formula1>LISTS!$A$1:$A$2</formula1>)",
         R"(type="decimal")", R"(type="date" operator="greaterThanOrEqual")",
         R"(type="textLength" operator="lessThanOrEqual" allowBlank="1" showInputMessage="1" showErrorMessage="1" error="The value has more than 18 characters." sqref="A2:A1048576"><formula1>18</formula1>)"}) {
        EXPECT_THAT(hoja, HasSubstr(regla));
    }
    const auto notas = paquete.LeerTodo("xl/comments1.xml");
    for (const char* const nota :
         {"Required.", "Pattern: [A-Z]+", "One of the values of values.txt.", "A date; in the file as DD.MM.YYYY."}) {
        EXPECT_THAT(notas, HasSubstr(nota));
    }
}

// Every day there is, in both directions, and none that isn't.
TEST(Dates, DaysAndTheirNumbers) {
    DiaDelAno ultimo{1899, 12, 31};
    for (long numero = 1; numero <= 2958465; ++numero) {
        const auto dia = DiaDeNumero(numero);
        ASSERT_EQ(dia.has_value(), numero != 60);
        if (!dia) continue;
        ASSERT_EQ(NumeroDeDia(*dia), numero);
        const auto esSiguiente = dia->dia == ultimo.dia + 1 || (dia->dia == 1 && ultimo.dia >= 28);
        ASSERT_TRUE(esSiguiente) << numero;
        ultimo = *dia;
    }
    EXPECT_EQ(ultimo, (DiaDelAno{9999, 12, 31}));
    EXPECT_FALSE(DiaDeNumero(2958466) || DiaDeNumero(0) || DiaDeNumero(-1));
    EXPECT_FALSE(NumeroDeDia({1900, 2, 29}) || NumeroDeDia({1899, 12, 31}) || NumeroDeDia({2004, 13, 1}) ||
                 NumeroDeDia({10000, 1, 1}));
}

}  // namespace
}  // namespace qor
