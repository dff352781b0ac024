#include "generator/data_source_models.h"

#include <utility>

#include "base/text.h"
#include "generator/generation.h"
#include "generator/input_forms.h"
#include "model/cells.h"

namespace qor {

namespace {

void AgregarLinea(std::string& texto, const std::string& linea) { texto += "\r\n" + linea; }

// Appends whole lines, each behind a CR LF.
void AgregarLineas(std::string& texto, const std::string& lineas) { texto += "\r\n" + lineas.substr(0, lineas.size() - 2); }

const char* NombreDeFuente(FuenteDeModelo fuente) {
    switch (fuente) {
        case FuenteDeModelo::ClientFlat: return "CLNTFLAT";
        case FuenteDeModelo::ClientTab: return "CLNTTAB";
        case FuenteDeModelo::Server: return "SERVER";
        case FuenteDeModelo::Ninguna: break;
    }
    return "NONE";
}

FuenteDeArchivo FuenteDeLectura(FuenteDeModelo fuente) {
    if (fuente == FuenteDeModelo::Server) return FuenteDeArchivo::Servidor;
    return fuente == FuenteDeModelo::ClientFlat ? FuenteDeArchivo::ClientePlano : FuenteDeArchivo::ClienteTabuladores;
}

std::string FormaDeLectura(Generacion& g, FuenteDeModelo fuente) {
    const std::string nombre = NombreDeFuente(fuente);
    g.reporte.Lineas(R"(
{RULE}
*       FORM READFILE_{fuente}{relleno}*
{RULE}
*  -->  AUXITAB                                                       *
*  -->  AUXFILE                                                       *
*  -->  AUXERROR                                                      *
{RULE}
FORM READFILE_{fuente} TABLES {LT}AUXITAB USING {LS}AUXFILE
                     CHANGING {LS}AUXERROR.
)",
                     {{"fuente", nombre}, {"relleno", Blancos(48 - static_cast<std::ptrdiff_t>(nombre.size()))}});
    EscribirCuerpoDeLectura(g.reporte, FuenteDeLectura(fuente), g.preferencias, g.Texto(505));
    g.reporte.Lineas(R"(
ENDFORM.

)");
    return g.reporte.Texto();
}

// A run that only serves the templates of the models.
Generacion GeneracionDeModelo(const PedidoDeGeneracion& pedido, Oyente& oyente) {
    Generacion g = NuevaGeneracion(pedido, oyente);
    g.nombres = SetearConvencionesDeNombres(g.preferencias);
    DefinirNombres(g);
    return g;
}

bool HayCamposPrincipales(const PedidoDeGeneracion& pedido) {
    if (ActualizarOperaciones(pedido.especificacion, 0).ContarCamposOperacion(0) > 0) return true;
    pedido.vista.Advertir(Componer(pedido.textos, {363}));
    return false;
}

// The field names of one table, read from the declarations.
std::vector<std::string> CamposDeTabla(const std::string& declaraciones, const std::string& itab) {
    std::vector<std::string> campos;
    bool abierta = false;
    for (const auto& linea : PartirLineas(declaraciones, 80)) {
        if (!abierta) {
            abierta = !EstaEnBlanco(linea) && Contiene(linea, itab + " ");
        } else if (Contiene(linea, "END OF")) {
            abierta = false;
        } else {
            campos.emplace_back(Recortar(AntesDe(linea, '(')));
        }
    }
    return campos;
}

}  // namespace

TextosDeOrigen TextosDe(Especificacion& especificacion) {
    return {especificacion.OrigenVariables, especificacion.OrigenForms, especificacion.OrigenSource};
}

bool ModeloArchivo(const PedidoDeGeneracion& pedido, TextosDeOrigen textos, const std::string& itab, FuenteDeModelo fuente) {
    if (fuente == FuenteDeModelo::Ninguna) return false;
    OyenteDeVista oyente(pedido.vista);
    Generacion g = GeneracionDeModelo(pedido, oyente);
    const std::string nombre = NombreDeFuente(fuente);
    if (!Contiene(textos.Variables, g.reporte.Rellenar(" {GS}ERROR "))) {
        AgregarLinea(textos.Variables, g.reporte.Rellenar("DATA: {GS}ERROR TYPE C.  \"Yes/No"));
    }
    const std::string archivo = g.nombres.PSprefijo + "FILE";
    int k = 1;
    while (Contiene(textos.Variables, archivo + std::to_string(k))) ++k;
    const std::string parametro = archivo + std::to_string(k);
    AgregarLinea(textos.Variables, "PARAMETERS: " + parametro + "(128) OBLIGATORY.");
    if (!Contiene(textos.Forms, nombre)) AgregarLineas(textos.Forms, FormaDeLectura(g, fuente));

    Reporte llamada = std::move(g.reporte);
    AgregarLinea(textos.Source, "PERFORM READFILE_" + nombre + " TABLES " + itab + " USING " + parametro);
    AgregarLinea(textos.Source, llamada.Rellenar("                        CHANGING {GS}ERROR."));
    AgregarLinea(textos.Source, llamada.Rellenar("IF {GS}ERROR = {GC}YES."));
    AgregarLinea(textos.Source, "  EXIT.");
    AgregarLinea(textos.Source, "ENDIF.");
    AgregarLinea(textos.Source, "");
    return true;
}

bool ModeloOpenSQL(const PedidoDeGeneracion& pedido, TextosDeOrigen textos, const std::string& itab,
                   const std::string& declaraciones) {
    if (!HayCamposPrincipales(pedido)) return false;
    const auto campos = CamposDeTabla(declaraciones, itab);
    const auto nombres = SetearConvencionesDeNombres(pedido.preferencias);
    AgregarLinea(textos.Variables, "TABLES: YOURTABLE.");
    std::string& source = textos.Source;
    AgregarLinea(source, "SELECT");
    for (const auto& campo : campos) AgregarLinea(source, "  " + campo);
    AgregarLinea(source, "INTO");
    for (std::size_t i = 0; i < campos.size(); ++i) {
        if (i > 0) source += ',';
        AgregarLinea(source, (i == 0 ? "  (" : "  ") + itab + "-" + campos[i]);
    }
    source += ')';
    AgregarLinea(source, "FROM YOURTABLE WHERE CONDITION.");
    // The main table is named here whatever table the model is for.
    AgregarLinea(source, "  APPEND " + nombres.GTprefijo + "ITAB.");
    AgregarLinea(source, "ENDSELECT.");
    pedido.vista.Informar(Componer(pedido.textos, {364}));
    return true;
}

bool ModeloSQLNativo(const PedidoDeGeneracion& pedido, TextosDeOrigen textos, const std::string& itab,
                     const std::string& declaraciones) {
    if (!HayCamposPrincipales(pedido)) return false;
    const auto campos = CamposDeTabla(declaraciones, itab);
    if (!Contiene(textos.Forms, "FORM APPEND_" + itab)) {
        Reporte forma;
        forma.Lineas(R"(
{RULE}
*       FORM APPEND_{itab}{relleno}*
{RULE}
FORM APPEND_{itab}.
  APPEND {itab}.
ENDFORM.
)",
                     {{"itab", itab}, {"relleno", Blancos(50 - static_cast<std::ptrdiff_t>(itab.size()))}});
        AgregarLineas(textos.Forms, forma.Texto());
    }
    std::string& source = textos.Source;
    const auto agregarCampos = [&](const std::string& antes) {
        for (std::size_t i = 0; i < campos.size(); ++i) {
            if (i > 0) source += ',';
            AgregarLinea(source, antes + campos[i]);
        }
    };
    AgregarLinea(source, "EXEC SQL PERFORMING APPEND_" + itab + ".");
    AgregarLinea(source, "  SELECT");
    agregarCampos("    ");
    AgregarLinea(source, "  INTO");
    agregarCampos("    :" + itab + "-");
    AgregarLinea(source, "  FROM YOURTABLE WHERE CONDITION");
    AgregarLinea(source, "ENDEXEC.");
    pedido.vista.Informar(Componer(pedido.textos, {365}));
    return true;
}

void EliminarTextos(TextosDeOrigen textos, const std::string& eleccion) {
    if (eleccion[0] == '1') textos.Variables.clear();
    if (eleccion[1] == '1') textos.Forms.clear();
    if (eleccion[2] == '1') textos.Source.clear();
}

}  // namespace qor
