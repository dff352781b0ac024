#include <gtest/gtest.h>

#include "base/text.h"
#include "generator/generate.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

// A specification in which each cell, option and line of a text holds a word of its own, so that the report itself tells where a
// line comes from. The number of a word is that of its row; a line of a text has its number behind a "_".
struct Marcada {
    VentanaDePrueba prueba;
    Especificacion& e = prueba.ventana.documento.especificacion;
    Opciones& o = prueba.ventana.documento.opciones;
    Preferencias preferencias;

    Marcada() {
        prueba.Archivo({"FILEA0|10", "FILEA1|6", "FILEA2|18", "FILEA3|4"});
        e.TablaArchivo[1].conversion = "'PAIR1_1' @ 'P'\r\n'PAIR1_2' @ 'Q'";
        e.TablaArchivo[3].conversion =
            "* COGE3_1\r\nCOGE3_2 = 'a text that is broken because it is so COGE3_2'.\r\n\r\nCOGE3_4 = 1.";
        prueba.Transaccion(
            {"TRANS|PROGB0", "PROGB1|101", "||PROGB2|FILEA0", "||PROGB3;CONDC1|'X'", "||BDC_OKCODE|'/00'", "PROGB5|102"});
        prueba.PonerTransaccion(6, "||PROGB6(1)|FILEA1|!1 1!2PROGB6F!30!4!51!65!7FILEA0");
        prueba.PonerTransaccion(7, "||PROGB7(1)|FILEA2");
        prueba.PonerTransaccion(8, "||BDC_OKCODE|'PROGB8'");
        prueba.PonerTransaccion(9, "BAPI|PROGB9");
        prueba.PonerTransaccion(10, "||HEAD-PROGB10|FILEA3");
        prueba.PonerTransaccion(11, "||HEAD-PROGB11;CONDC0|FILEA0");
        e.TablaBAPIs[0] = {"PROGB9", "CALL FUNCTION 'X'\r\n  EXPORTING CALLD0_2 = A\r\n  TABLES RETURN = CALLD0_3."};
        e.TablaCondiciones[0] = {"CONDC0", "IF TEXTC0_1 = 1.\r\n  TEXTC0_2 = 2.\r\nENDIF."};
        e.TablaCondiciones[1] = {"CONDC1", "TEXTC1_1 = 1."};
        e.VariablesGlobales = "DATA: HEAD LIKE H.\r\nDATA: VARIE_2.\r\nDATA: RETURN LIKE R.";
        e.OrigenVariables = "DATA: OWNVF_1.\r\nDATA: OWNVF_2.";
        e.OrigenForms = "FORM OWNFG_1.\r\n  OWNFG_2 = 1.\r\nENDFORM.";
        e.OrigenSource = "OWNSH_1 = 1.\r\n\r\nOWNSH_3 = 3.";
        o.ArchivoFuente = "OPTIONA";
        o.TablaZ = "OPTIONZ";
        o.ProgID = "12";
        o.SpaceCode = "OPTIONS";
        o.ProcesarTodoOpt = false;
        o.GeneracionAutomatica = false;
        o.NombreManual = "OPTIONN";
        o.CallTransaction = o.ErrorHandlingCheck = o.SafeCallTransactionCheck = 1;
        preferencias.AdicionesDataset = "OPTIONE.";
    }
};

// The places that the words of a line name; one of them is the origin that is expected.
std::vector<Lugar> LugaresEn(std::string_view linea) {
    using Parte = Lugar::Parte;
    struct Palabra {
        const char* raiz;
        Lugar lugar;
    };
    static const Palabra palabras[] = {{"FILEA", Lugar::EnArchivo(0, 0)},
                                       {"PAIR", Lugar::EnArchivo(0, 3)},
                                       {"COGE", Lugar::EnArchivo(0, 3)},
                                       {"PROGB", Lugar::EnPrograma(0, 0)},
                                       {"CONDC", Lugar::EnCondicion(0, 0)},
                                       {"TEXTC", Lugar::EnCondicion(0, 1)},
                                       {"CALLD", Lugar::EnBAPI(0, 1)},
                                       {"VARIE", {Parte::VariablesGlobales}},
                                       {"OWNVF", {Parte::OrigenVariables}},
                                       {"OWNFG", {Parte::OrigenForms}},
                                       {"OWNSH", {Parte::OrigenSource}},
                                       {"OPTIONA", Lugar::EnOpcion("ArchivoFuente")},
                                       {"OPTIONS", Lugar::EnOpcion("SpaceCode")},
                                       {"OPTIONN", Lugar::EnOpcion("NombreManual")},
                                       {"OPTIONE", Lugar::EnPreferencia("EncodingAdditional")}};
    std::vector<Lugar> lugares;
    for (const auto& [raiz, lugar] : palabras) {
        for (auto p = linea.find(raiz); p != std::string_view::npos; p = linea.find(raiz, p + 1)) {
            Lugar hallado = lugar;
            const auto numero = linea.substr(p + std::string_view(raiz).size());
            if (lugar.fila == 0)
                hallado.fila = static_cast<std::int16_t>(Numero(numero.substr(0, numero.find_first_not_of("0123456789"))));
            if (const auto fin = numero.find_first_not_of("0123456789");
                fin != std::string_view::npos && numero[fin] == '_' && lugar.parte != Parte::Programa)
                hallado.linea = static_cast<std::int16_t>(Numero(numero.substr(fin + 1, 1)));
            lugares.push_back(hallado);
        }
    }
    return lugares;
}

bool EsDe(const Lugar& origen, const Lugar& lugar) {
    // A row names its condition and its field, and the head of a step-loop its keys.
    if (lugar.parte == Lugar::Parte::Condiciones && lugar.columna == 0 && origen.parte == Lugar::Parte::Programa) return true;
    if (lugar.parte == Lugar::Parte::Archivo && origen.parte == Lugar::Parte::Programa) return true;
    const bool texto = lugar.linea > 0;
    return origen.parte == lugar.parte && origen.fila == lugar.fila && origen.Opcion() == lugar.Opcion() &&
           (!texto || origen.linea == lugar.linea);
}

void Revisar(Marcada& marcada, const std::string& que) {
    const auto reporte =
        ComponerReporte({marcada.e, marcada.o, marcada.preferencias, marcada.prueba.textos, marcada.prueba.vista, "", ""});
    ASSERT_TRUE(reporte) << que << marcada.prueba.vista.TomarAvisos();
    const auto lineas = PartirEnLineas(reporte->texto);
    std::size_t tramo = 0;
    int conPalabra = 0;
    for (std::size_t n = 0; n < lineas.size(); ++n) {
        while (tramo + 1 < reporte->origenes.size() && reporte->origenes[tramo + 1].primeraLinea <= static_cast<int>(n)) ++tramo;
        const auto lugares = LugaresEn(lineas[n]);
        if (lugares.empty()) continue;
        ++conPalabra;
        const Lugar& origen = reporte->origenes[tramo].lugar;
        EXPECT_TRUE(std::any_of(lugares.begin(), lugares.end(), [&](const Lugar& lugar) { return EsDe(origen, lugar); }))
            << que << ", line " << n + 1 << ": " << lineas[n] << "\n  comes from part " << static_cast<int>(origen.parte)
            << ", row " << origen.fila << ", line " << origen.linea << ", option " << origen.Opcion();
    }
    EXPECT_GT(conPalabra, 50) << que;
}

TEST(Origins, EachLineComesFromTheCellWhoseTextItHolds) {
    for (const int entrada : {0, 1, 2, 3, 4}) {
        Marcada marcada;
        marcada.o.FileParameterCh = entrada % 2;
        if (entrada == 1) marcada.o.ClienteOp = false;
        if (entrada == 2) {
            marcada.o.MultipleFilesOption = false;
            marcada.o.Identificadores = "H,I";
        } else if (entrada == 3) {
            marcada.o.ClienteOp = false;
            marcada.o.TablaCh = 1;
        } else if (entrada == 4) {
            marcada.e.OrigenUsuario = true;
        }
        Revisar(marcada, "input " + std::to_string(entrada));
    }
}

}  // namespace
}  // namespace qor::pruebas
