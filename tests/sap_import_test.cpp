#include <gmock/gmock.h>

#include "app/show_changes.h"
#include "base/failure.h"
#include "base/files.h"
#include "editor/undo_command.h"
#include "sap/import.h"
#include "sap/queue_choice.h"
#include "tests/support/cases_in_file.h"
#include "tests/support/practice_session.h"
#include "tests/support/scripted_service.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::Guion;
using pruebas::SesionConectada;
using pruebas::SesionDePractica;
using pruebas::VentanaDePrueba;

// A session record.
std::string Registro(std::string programa, std::string dynpro, char clase, std::string campo, const std::string& valor) {
    programa.resize(40, ' ');
    dynpro.resize(4, ' ');
    campo.resize(132, ' ');
    return programa + dynpro + clase + campo + valor + "\r\n";
}

// The rows of a text read into an empty table from row 0. What stops the reading is the last row.
std::vector<std::string> Leer(std::string_view texto, int& malEscritas) {
    VentanaDePrueba prueba;
    std::string fin;
    try {
        LeerSesion(prueba.documento.especificacion.TablaTransaccion, texto, 0, [&] { ++malEscritas; });
    } catch (const FalloDeEjecucion& fallo) {
        fin = fallo.what();
    }
    auto filas = prueba.FilasTransaccion();
    if (!fin.empty()) filas.push_back(fin);
    return filas;
}

struct Caso {
    const char* que;
    std::string texto;
    std::vector<std::string> filas;
};

TEST(Import, ARecordingAsText) {
    for (const auto& caso : pruebas::LeerCasos("recordings.txt")) {
        int malEscritas = 0;
        auto filas = Leer(caso.codigo + "\n", malEscritas);
        if (malEscritas > 0) filas.push_back("badly written: " + std::to_string(malEscritas));
        EXPECT_EQ(filas, caso.esperado) << caso.codigo;
        // Neither the end of the last line nor the kind of line ends makes a difference.
        EXPECT_EQ(Leer(caso.codigo, malEscritas), Leer(ReemplazarTodo(caso.codigo, "\n", "\r") + "\r", malEscritas));
    }
    int malEscritas = 0;
    EXPECT_TRUE(Leer("", malEscritas).empty());
}

TEST(Import, ASessionAsRecords) {
    const std::string mm01 = Registro("", "0000", 'T', "mm01", "");
    const Caso casos[] = {
        {"a whole one, in upper case; the header counts for nothing",
         Registro("", "0000", 'M', "SESSION", "") + mm01 + Registro("saplmgmm", "0060", 'X', "", "") +
             Registro("", "0000", ' ', "rmmg1-matnr", "  part a ") + Registro("", "0000", ' ', "EMPTY", "") +
             Registro("", "0000", ' ', "BDC_SUBSCR", "SAPLMGMM                                2000TABFRA1") +
             Registro("", "0000", 'T', "MM02", ""),
         {"TRANS|MM01", "SAPLMGMM|0060", "||RMMG1-MATNR|'PART A'", "||EMPTY|''", "||BDC_SUBSCR|'SAPLMGMM 2000TABFRA1'",
          "TRANS|MM02"}},
        {"only the ten columns tell a subscreen",
         mm01 + Registro("", "0000", ' ', "BDC_SUBSCREEN", "A" + std::string(39, ' ') + "B"),
         {"TRANS|MM01", "||BDC_SUBSCREEN|'A B'"}},
        {"a longer name is no subscreen",
         mm01 + Registro("", "0000", ' ', "XBDC_SUBSC", "AB"),
         {"TRANS|MM01", "||XBDC_SUBSC|'AB'"}},
        {"other kinds, short lines and text behind the switch have no effect",
         mm01 + Registro("", "0000", 'Z', "F", "V") + "short\r\n\r\nbdc_field 'F'\r\n",
         {"TRANS|MM01"}},
        {"a line that ends at the kind", mm01 + "P" + std::string(39, ' ') + "0100X\n", {"TRANS|MM01", "P|0100"}},
        {"text in front of the switch is read as text", "bdc_field 'F'\n'v'\n" + mm01, {"", "||F|'v'", "TRANS|MM01"}},
        {"the switch works on any line, whatever else it holds", std::string(40, ' ') + "0000Tbdc_field\n", {"TRANS|BDC_FIELD"}},
    };
    for (const auto& caso : casos) {
        int malEscritas = 0;
        EXPECT_EQ(Leer(caso.texto, malEscritas), caso.filas) << caso.que;
    }
}

TEST(Import, ReadingStopsBehindRow1000) {
    std::string texto;
    for (int i = 0; i < 600; ++i) texto += "bdc_dynpro 'P' '1'\nbdc_field 'F'\n'V'\n";
    texto += "bdc_transaction 'T'\n";
    VentanaDePrueba prueba;
    LeerSesion(prueba.documento.especificacion.TablaTransaccion, texto, 0, [] {});
    EXPECT_EQ(prueba.FilaTransaccion(0), "");  // the code was not reached
    EXPECT_EQ(prueba.FilaTransaccion(1000), "||F|'V'");
    EXPECT_EQ(prueba.FilaTransaccion(1001), "");
    std::string sesion = Registro("", "0000", 'T', "T", "");
    for (int i = 0; i < 1200; ++i) sesion += Registro("", "0000", ' ', "F" + std::to_string(i), "");
    LeerSesion(prueba.documento.especificacion.TablaTransaccion, sesion, 995, [] {});
    EXPECT_EQ(prueba.FilaTransaccion(1000), "||F4|''");
    EXPECT_EQ(prueba.FilaTransaccion(1001), "");
    // The last row is taken by a head, so its screen stands behind the rows that count; a field behind that has no place.
    LeerSesion(prueba.documento.especificacion.TablaTransaccion, "bdc_dynpro 'P' '1'\n", 1000, [] {});
    EXPECT_THROW(LeerSesion(prueba.documento.especificacion.TablaTransaccion, "bdc_dynpro bdc_field 'P' '1'\n'V'\n", 1000, [] {}),
                 FalloDeEjecucion);
}

// ---- The frame ----

struct PruebaDeImportacion {
    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
    std::filesystem::path archivo = directorio.Escribir("rec", "bdc_dynpro 'prog' '1'\nbdc_field 'f'\n' v'\nbdc_transaction 't'\n");

    bool Importar(const std::filesystem::path& ruta) {
        return Tomar(LeerImportacion(prueba.documento.especificacion, ruta, prueba.textos, prueba.vista));
    }
    bool Importar() { return Importar(archivo); }

    bool Tomar(std::optional<Importacion> leida) {
        if (!leida) return false;
        TomarImportacion(prueba.ventana, std::move(*leida), "Rows");
        return true;
    }
};

TEST(Import, RowsThatAreThereAreReplacedOrKept) {
    struct CasoDeFilas {
        Respuesta respuesta;
        bool hecho;
        std::vector<std::string> filas;
        const char* avisos;
    };
    const CasoDeFilas casos[] = {
        {Respuesta::Si, true, {"TRANS|T", "PROG|1", "||F|' v'"}, "<330>\r\n<331> <329>\r\nRows: 3."},
        {Respuesta::No, true, {"TRANS|OLD", "", "|x", "TRANS|T", "PROG|1", "||F|' v'"}, "<330>\r\n<331> <329>\r\nRows: 3."},
        {Respuesta::Cancelar, false, {"TRANS|OLD", "", "|x"}, "<330>\r\n<331>"},
    };
    for (const auto& caso : casos) {
        PruebaDeImportacion importacion;
        auto& ventana = importacion.prueba.ventana;
        importacion.prueba.Transaccion({"TRANS|OLD"});
        ventana.documento.especificacion.TablaTransaccion[2].dynpro = "x";  // text anywhere makes a row a used one
        ventana.foco = LugarDeCelda{Columna::Valor, 2};
        ventana.SSTab1 = 3;
        ventana.documento.DarPorGuardado();
        importacion.prueba.vista.respuestas = {caso.respuesta};
        EXPECT_EQ(importacion.Importar(), caso.hecho);
        // The rows that are seen come out in upper case, but for constants.
        auto filas = caso.filas;
        if (caso.respuesta == Respuesta::No) filas[2] = "|X";
        EXPECT_EQ(importacion.prueba.FilasTransaccion(), filas);
        EXPECT_EQ(importacion.prueba.vista.TomarAvisos(), caso.avisos);
        EXPECT_EQ(ventana.documento.HayCambios(), caso.hecho);
        EXPECT_EQ(ventana.SSTab1, caso.hecho ? 0 : 3);
        EXPECT_EQ(ventana.foco.has_value(), true);
        // One step brings all rows back.
        if (!caso.hecho) continue;
        Deshacer(ventana);
        const char* const fila2 = caso.respuesta == Respuesta::Si ? "|X" : "|x";
        EXPECT_EQ(importacion.prueba.FilasTransaccion(), (std::vector<std::string>{"TRANS|OLD", "", fila2}));
        EXPECT_TRUE(ventana.documento.deshacer.Vacia());
    }
}

TEST(Import, AnEarlyEndLeavesNoTrace) {
    PruebaDeImportacion ejemplo;
    const std::pair<std::filesystem::path, const char*> casos[] = {
        {"  ", "<330>\r\n<331> <332>"},
        {ejemplo.directorio / "absent", "<330>\r\n<331> <335>"},
        {ejemplo.directorio.Ruta(), "<330>\r\n<331> <335>"},
        {ejemplo.directorio.Escribir("cut", "bdc_dynpro 'p' '1'\nbdc_field f"), "<330>\r\n<331> <372> <335>"},
    };
    for (const auto& [ruta, avisos] : casos) {
        PruebaDeImportacion importacion;
        auto& documento = importacion.prueba.documento;
        importacion.prueba.Transaccion({"TRANS|OLD"});
        importacion.prueba.vista.respuestas = {Respuesta::Si};
        EXPECT_FALSE(importacion.Importar(ruta));
        EXPECT_EQ(importacion.prueba.vista.TomarAvisos(), avisos);
        EXPECT_EQ(importacion.prueba.FilasTransaccion(), std::vector<std::string>{"TRANS|OLD"});
        EXPECT_FALSE(documento.HayCambios());
        // What is typed behind it counts and can be undone.
        importacion.prueba.Escribir({Columna::Dynpro, 0}, "X");
        EXPECT_TRUE(documento.HayCambios() && !documento.deshacer.Vacia());
    }
}

// ---- The choice in the connected system ----

TEST(Import, TheButtonsImportTheChosenEntryAndDeleteItsFile) {
    SesionDePractica practica;
    const auto sesion = practica.PonerSesion("LOAD", {{"SAPLMGMM", "0060", true, "", ""}, {"", "", false, "A-B", " v"}});
    for (const bool elige : {true, false}) {
        PruebaDeImportacion importacion;
        auto& prueba = importacion.prueba;
        const DialogoImport FormImport = [&](FormularioImport& formulario) {
            EXPECT_TRUE(LlenarGrilla(formulario, practica.sesion, prueba.textos, prueba.vista));
            ASSERT_EQ(formulario.Grilla.size(), 1U);
            EXPECT_EQ(formulario.Grilla[0], (FilaDeGrilla{"", "000", "LOAD", "PRACTICE", "20260102", "030405", sesion}));
            ActivarFila(formulario, elige ? sesion : "", practica.sesion, prueba.vista);
            EXPECT_EQ(std::filesystem::is_empty(practica.temporal), !elige);
        };
        importacion.Tomar(ButtonOnlineSM35(prueba.documento.especificacion, FormImport, prueba.textos, prueba.vista));
        EXPECT_EQ(prueba.vista.TomarAvisos(), elige ? "<329>\r\nRows: 3." : "");
        EXPECT_EQ(prueba.FilaTransaccion(2), elige ? "||A-B|'V'" : "");
        EXPECT_TRUE(std::filesystem::is_empty(practica.temporal));
    }
    // An entry that can't be had closes the dialog without a word; a list that can't be had is told.
    const auto guion = std::make_shared<Guion>();
    SesionSAP conFallos = SesionConectada(guion);
    FormularioImport formulario;
    auto& prueba = practica.prueba;
    ActivarFila(formulario, "Q1", conFallos, prueba.vista);
    EXPECT_EQ(prueba.vista.TomarAvisos() + formulario.ArchivoImportado.string(), "");
    EXPECT_FALSE(LlenarGrilla(formulario, conFallos, prueba.textos, prueba.vista));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<415>");
}

}  // namespace
}  // namespace qor
