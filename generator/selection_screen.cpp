#include "base/text.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

namespace {

void EscribirParametro(Generacion& g, const std::string& cabeza, std::string_view porDefecto, const char* fin) {
    // With error handling the file may stay empty: a repeated run reads none.
    const std::string obligatorio = g.analisis.ManejoErrores ? "" : "OBLIGATORY ";
    if (porDefecto.empty()) {
        g.reporte.Linea("{cabeza}(128) {ob}LOWER CASE{fin}", {{"cabeza", cabeza}, {"ob", obligatorio}, {"fin", fin}});
        return;
    }
    g.reporte.Lineas(R"(
{cabeza}(128) DEFAULT '{archivo}'
            {ob}LOWER CASE{fin}
)",
                     {{"cabeza", cabeza}, {"archivo", std::string(porDefecto)}, {"ob", obligatorio}, {"fin", fin}});
}

void EscribirParametrosDeArchivo(Generacion& g) {
    g.valores.VariableArchivo = g.nombres.PSprefijo + "FILE";
    g.valores.VariableArchivoStep = g.nombres.PSprefijo + g.nombres.RaizArchivoStep;
    g.reporte.Definir("ARCHIVO", g.valores.VariableArchivo);
    g.reporte.Definir("STEP", g.valores.VariableArchivoStep);
    const auto archivo = Recortar(g.opciones.ArchivoFuente);
    const std::string principal = "PARAMETERS: " + g.valores.VariableArchivo;
    g.reporte.Desde(Lugar::EnOpcion("ArchivoFuente"));
    g.reporte.LineaVacia();
    if (g.analisis.ArchivoUnico) {
        // Only here the default is in lower case, on purpose.
        EscribirParametro(g, principal, Minusculas(archivo), ".");
        return;
    }
    const auto cabezas = CabezasStepLoop(g.especificacion);
    EscribirParametro(g, principal, archivo, cabezas.empty() ? "." : ",");
    for (std::size_t n = 1; n <= cabezas.size(); ++n) {
        const auto& marcas = g.especificacion.TablaTransaccion[cabezas[n - 1]].nota;
        g.reporte.Desde(Lugar::EnPrograma(cabezas[n - 1], 4));
        EscribirParametro(g, "            " + g.valores.VariableArchivoStep + std::to_string(n), Recortar(ValorDeMarca(marcas, 2)),
                          n == cabezas.size() ? "." : ",");
    }
}

void EscribirAyudaF4(Generacion& g, const std::string& parametro) {
    g.reporte.Lineas(R"(

AT SELECTION-SCREEN ON VALUE-REQUEST FOR {parametro}.
  CALL FUNCTION 'KD_GET_FILENAME_ON_F4'
       CHANGING
         FILE_NAME      = {parametro}
       EXCEPTIONS
         MASK_TOO_LONG  = 1
         OTHERS         = 2.
)",
                     {{"parametro", parametro}});
}

}  // namespace

void EscribirPantallaDeSeleccion(Generacion& g) {
    const auto& o = g.opciones;
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    if (g.analisis.ManejoErrores) {
        g.reporte.Lineas(R"(

SELECTION-SCREEN BEGIN OF BLOCK PROGOPT WITH FRAME.
PARAMETERS: {NEWB} RADIOBUTTON GROUP RADB DEFAULT 'X'.
)");
    }
    if (g.EntradaDeArchivo() && o.FileParameterCh == 1) EscribirParametrosDeArchivo(g);
    if (g.ConModo() && o.ModeAsParameter != 0) {
        g.reporte.Desde(Lugar::EnOpcion("ModeAsParameter"));
        g.valores.VariableModo = g.nombres.PSprefijo + g.nombres.RaizModo;
        g.reporte.Definir("MODO", g.valores.VariableModo);
        g.reporte.Lineas(R"(

PARAMETERS: {MODO} LIKE CTU_PARAMS-DISMODE OBLIGATORY DEFAULT '{M}'.
)");
    }
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    if (g.analisis.ManejoErrores) {
        g.reporte.Lineas(R"(
SELECTION-SCREEN SKIP 1.
PARAMETERS: {OLDB} RADIOBUTTON GROUP RADB,
            {BNUM}(10).
SELECTION-SCREEN END OF BLOCK PROGOPT.
)");
    }
    g.reporte.Desde(Lugar::EnOpcion("AddF4"));
    if (o.AddF4 == 1 && o.ClienteOp && o.FileParameterCh == 1 && !g.especificacion.OrigenUsuario) {
        EscribirAyudaF4(g, g.valores.VariableArchivo);
        if (g.analisis.ArchivoUnico) return;
        const int grupos = ContarStepLoops(g.especificacion);
        for (int n = 1; n <= grupos; ++n) EscribirAyudaF4(g, g.valores.VariableArchivoStep + std::to_string(n));
    }
}

}  // namespace qor
