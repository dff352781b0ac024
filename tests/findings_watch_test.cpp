#include "app/findings_watch.h"

#include <gmock/gmock.h>

#include "app/publish_question.h"
#include "app/refusal_view.h"
#include "tests/support/language.h"
#include "tests/support/window_fixture.h"

namespace qor {

void PrintTo(const Destino& d, std::ostream* salida) {
    *salida << static_cast<int>(d.clase) << " column " << static_cast<int>(d.columna) << " row " << d.fila << ' ' << d.control
            << " line " << d.linea;
}

namespace {

using pruebas::VentanaDePrueba;
using Clase = Destino::Clase;
using Parte = Lugar::Parte;

// A specification with every kind of place.
class Findings : public testing::Test {
protected:
    Findings() {
        p.Archivo({"MATNR|18", "WERKS|4"});
        p.Transaccion({"TRANS|MM01", "SAPLMGMM|0060", "||RMMG1-MATNR|MATNR", "||F(1)|WERKS|!1 1!2!31!4!51!6!7,MATNR",
                       "||G(1)|WERKS|!2x!1 1", "BAPI|BAPI_A", "||X|'1'"});
        p.documento.especificacion.TablaBAPIs[0] = {"BAPI_A", "call\r\n."};
        p.documento.especificacion.TablaBAPIs[1] = {"BAPI_UNUSED", "call."};
    }

    MateriaDeHallazgos Materia(bool conectado = false) const { return {p.documento, preferencias, p.textos, conectado}; }
    CuentaDeHallazgos CuentaTrasMirar() {
        vigia.Mirar(Materia());
        return ContarHallazgos(vigia.Lista());
    }

    VentanaDePrueba p;
    Preferencias preferencias;
    VigiaDeHallazgos vigia;
};

TEST_F(Findings, LeadToWhatEditsTheirPlace) {
    p.documento.opciones.Modo = 'E';
    p.documento.opciones.ClienteOp = false;
    const auto columna = Columna::CampoDeArchivo;
    struct Caso {
        const char* que;
        Lugar lugar;
        Destino destino;
    };
    const Caso casos[] = {
        {"the specification as a whole", {}, {}},
        {"name of a field", Lugar::EnArchivo(1, 0), {Clase::Celda, columna, 1, "", 0}},
        {"width", Lugar::EnArchivo(1, 1), {Clase::Celda, Columna::Ancho, 1, "", 0}},
        {"note of a field", Lugar::EnArchivo(1, 2), {Clase::Nota, columna, 1, "", 0}},
        {"conversion", Lugar::EnArchivo(0, 3, 7), {Clase::Conversion, columna, 0, "", 7}},
        {"conversion of a row without a name", Lugar::EnArchivo(5, 3, 7), {Clase::Celda, columna, 5, "", 0}},
        {"program", Lugar::EnPrograma(1, 0), {Clase::Celda, Columna::Programa, 1, "", 0}},
        {"dynpro", Lugar::EnPrograma(1, 1), {Clase::Celda, Columna::Dynpro, 1, "", 0}},
        {"field", Lugar::EnPrograma(2, 2), {Clase::Celda, Columna::Campo, 2, "", 0}},
        {"value", Lugar::EnPrograma(2, 3), {Clase::Celda, Columna::Valor, 2, "", 0}},
        {"a row as a whole", Lugar::EnPrograma(2, Lugar::sinColumna), {Clase::Celda, Columna::Programa, 2, "", 0}},
        {"step-loop", Lugar::EnPrograma(3, 4), {Clase::Nota, Columna::Campo, 3, "", 0}},
        {"marks that no dialog can read", Lugar::EnPrograma(4, 4), {Clase::Celda, Columna::Campo, 4, "", 0}},
        {"a row without a field takes no note", Lugar::EnPrograma(1, 4), {Clase::Celda, Columna::Campo, 1, "", 0}},
        {"name of a condition", Lugar::EnCondicion(2, 0), {Clase::Condiciones, columna, 2, "", 0}},
        {"text of a condition", Lugar::EnCondicion(2, 1, 3), {Clase::Condiciones, columna, 2, "", 3}},
        {"a BAPI", Lugar::EnBAPI(0, 0), {Clase::Celda, Columna::Dynpro, 5, "", 0}},
        {"a BAPI without a head", Lugar::EnBAPI(1, 0), {Clase::Definiciones, columna, 2, "", 0}},
        {"call text", Lugar::EnBAPI(0, 1, 2), {Clase::Definiciones, columna, 1, "", 2}},
        {"global definitions", Lugar::EnTexto(Parte::VariablesGlobales, 4), {Clase::Definiciones, columna, 0, "", 4}},
        {"own declarations", Lugar::EnTexto(Parte::OrigenVariables, 1), {Clase::Origen, columna, -1, "Variables", 1}},
        {"own forms", Lugar::EnTexto(Parte::OrigenForms, 2), {Clase::Origen, columna, -1, "Forms", 2}},
        {"own code", Lugar::EnTexto(Parte::OrigenSource, 3), {Clase::Origen, columna, -1, "Source", 3}},
        {"an option", Lugar::EnOpcion("TablaZ"), {Clase::Control, columna, -1, "TablaZ", 0}},
        {"the button that is on", Lugar::EnOpcion("Modo"), {Clase::Control, columna, -1, "EOption", 0}},
        {"the other of a pair", Lugar::EnOpcion("ClienteOp"), {Clase::Control, columna, -1, "ServidorOp", 0}},
        {"a setting", Lugar::EnPreferencia("PSprefijo"), {Clase::Control, columna, -1, "PSprefijo", 0}},
    };
    for (const auto& caso : casos) {
        EXPECT_EQ(DestinoDe(caso.lugar, p.documento.especificacion, p.documento.opciones), caso.destino) << caso.que;
    }
}

TEST_F(Findings, ACellIsShownWhereItsRowIsOutOfSight) {
    struct Caso {
        Columna columna;
        int fila;
        const char* foco;
        int primera;
    };
    const Caso casos[] = {
        {Columna::Valor, 6, "Text5_6", 0},   {Columna::Dynpro, 40, "Text3_2", 38},
        {Columna::Campo, 47, "Text4_9", 38}, {Columna::Programa, ultimaFila, "Text6_10", ultimaPrimeraFilaTransaccion},
        {Columna::Valor, 1, "Text5_1", 0},
    };
    for (const auto& caso : casos) {
        MostrarCelda(p.ventana, caso.columna, caso.fila);
        EXPECT_EQ(p.Foco(), caso.foco);
        EXPECT_EQ(p.ventana.transaccion.PrimeraFilaTransaccion, caso.primera) << caso.foco;
    }
    MostrarCelda(p.ventana, Columna::Ancho, 500);
    EXPECT_EQ(p.Foco(), "Text2_2");
    EXPECT_EQ(p.ventana.archivo.LineaArchivo, 500);
}

TEST_F(Findings, ARowHasTheWorstOfItsFindingsAndAllOfTheirSentences) {
    const std::vector<Hallazgo> lista = {{401, Gravedad::Aviso, 0, Lugar::EnPrograma(2, 3), "", "One."},
                                         {203, Gravedad::Error, 310, Lugar::EnPrograma(2, 3), "", "Two."},
                                         {601, Gravedad::Nota, 0, Lugar::EnArchivo(2, 0), "", "Three."},
                                         {118, Gravedad::Error, 384, Lugar::EnBAPI(0, 0), "", "Four."},
                                         {301, Gravedad::Error, 0, Lugar::EnTexto(Parte::VariablesGlobales, 1), "", "Five."}};
    const SignosDeFilas programa = {{2, {Gravedad::Error, "One.\nTwo."}}, {5, {Gravedad::Error, "Four."}}};
    const SignosDeFilas archivo = {{2, {Gravedad::Nota, "Three."}}};
    EXPECT_EQ(SignosDe(lista, Tabla::Transaccion, p.documento.especificacion, p.documento.opciones), programa);
    EXPECT_EQ(SignosDe(lista, Tabla::Archivo, p.documento.especificacion, p.documento.opciones), archivo);
}

TEST_F(Findings, AreLookedForAnewWhereAnAnalysisWouldReadSomethingElse) {
    bool conectado = false;
    const auto pausa = [&] { return vigia.PausaHastaMirar(Materia(conectado)).value_or(-1); };
    EXPECT_EQ(pausa(), 500);
    struct Caso {
        const char* que;
        std::function<void()> cambiar;
        int pausa;
    };
    const Caso casos[] = {
        {"an edit", [&] { p.documento.Cambiar(); }, 500},
        {"the file was replaced",
         [&] {
             p.documento.identidad = IdentidadDeArchivo{1, 2, 3, 4};
         },
         500},
        {"a prefix", [&] { preferencias.PSprefijo = "P_"; }, 500},
        {"the language", [&] { p.textos.Poner(0, "Espanol"); }, 500},
        {"the connection", [&] { conectado = true; }, 500},
        {"another document of the same age", [&] { p.documento.ruta = "/other.qor"; }, 0},
        {"a new document", [&] { p.documento = {}; }, 0},
    };
    for (const auto& caso : casos) {
        EXPECT_EQ(pausa(), -1) << caso.que;
        caso.cambiar();
        EXPECT_EQ(pausa(), caso.pausa) << caso.que;
    }
    vigia.Encender(false);
    p.documento.Cambiar();
    EXPECT_EQ(pausa(), -1);
}

TEST_F(Findings, AReportOfAConnectedProgramNeedsNoFile) {
    const auto sinArchivo = [&](bool conectado) {
        vigia.Mirar(Materia(conectado));
        const auto& lista = vigia.Lista();
        return std::any_of(lista.begin(), lista.end(), [](const Hallazgo& h) { return h.codigo == 110; });
    };
    EXPECT_TRUE(sinArchivo(false));
    EXPECT_FALSE(sinArchivo(true));
    EXPECT_EQ(ContarErrores(Materia(true)), ContarErrores(Materia(false)) - 1);
}

TEST_F(Findings, TheWayOfThePaneThroughSwitchesAndRunsOfGenerate) {
    p.documento.especificacion.TablaTransaccion[2].valor = "ABSENT";
    EXPECT_GT(CuentaTrasMirar().errores, 0);
    EXPECT_TRUE(vigia.Visible());
    EXPECT_EQ(vigia.Vecino(0, -1), static_cast<int>(vigia.Lista().size()) - 1);
    EXPECT_EQ(vigia.Vecino(-1, 1), 0);

    vigia.Encender(false);
    EXPECT_EQ(CuentaTrasMirar().errores, 0);
    const auto tras = [&](const FinDeGeneracion& fin) { return vigia.TrasGenerar(fin, Materia()); };
    // The user's own no opens nothing.
    EXPECT_EQ(tras({false, false, 0}), -1);
    EXPECT_FALSE(vigia.Visible());
    const int elegido = tras({false, true, 308});
    ASSERT_GE(elegido, 0);
    EXPECT_EQ(vigia.Lista().at(static_cast<std::size_t>(elegido)).codigo, 201);
    EXPECT_TRUE(vigia.Visible());
    // It stays open until there is nothing to show.
    EXPECT_GT(CuentaTrasMirar().errores, 0);
    p.documento.especificacion = {};
    EXPECT_EQ(CuentaTrasMirar().errores, 0);
    EXPECT_FALSE(vigia.Pedido());
    EXPECT_EQ(vigia.Vecino(-1, 1), -1);
}

TEST_F(Findings, ARefusalIsToldFromAUsersNo) {
    struct Caso {
        std::function<void(Vista&)> ocurre;
        bool rechazado;
        int mensaje;
    };
    const auto avisar = [&](Vista& v) { v.Advertir(Componer(p.textos, {308})); };
    const auto preguntar = [&](Vista& v) { v.Preguntar(Componer(p.textos, {337}), Botones::AceptarCancelar); };
    const Caso casos[] = {
        {[](Vista&) {}, true, 0},
        {avisar, true, 308},
        {preguntar, false, 0},
        {[&](Vista& v) { preguntar(v), avisar(v); }, true, 308},
    };
    for (const auto& caso : casos) {
        VistaDeRechazo vista(p.vista);
        caso.ocurre(vista);
        EXPECT_EQ(vista.Fin(false).rechazado, caso.rechazado);
        EXPECT_EQ(vista.Fin(false).mensaje, caso.mensaje);
        EXPECT_FALSE(vista.Fin(true).rechazado);
    }
    EXPECT_EQ(p.vista.avisos.size(), 4U);
}

TEST_F(Findings, AReportWithErrorsIsPublishedOnlyAfterAYes) {
    struct Caso {
        int errores;
        std::deque<Respuesta> respuestas;
        const char* idioma;
        const char* pregunta;  // how it begins
        const char* nombre;
    };
    const Caso casos[] = {
        {0, {}, "English", "", "ZLOAD"},
        {1, {Respuesta::Si}, "English", "The report has 1 error,", "ZLOAD"},
        {2, {Respuesta::No}, "English", "The report has 2 errors,", ""},
        {2, {Respuesta::No}, "Espanol", "El report tiene 2 errores,", ""},
    };
    for (const auto& caso : casos) {
        const auto textos = pruebas::TextosDe(caso.idioma);
        p.vista.respuestas = caso.respuestas;
        const auto dialogo = TrasPreguntarPorErrores([](const std::string& propuesto) { return propuesto; },
                                                     [&] { return caso.errores; }, textos, p.vista);
        EXPECT_EQ(dialogo("ZLOAD"), caso.nombre);
        const std::string avisos = p.vista.TomarAvisos();
        EXPECT_THAT(avisos, testing::StartsWith(caso.pregunta));
        EXPECT_EQ(avisos.empty(), caso.errores == 0);
    }
}

}  // namespace
}  // namespace qor
