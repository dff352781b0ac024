#include "generator/analysis.h"

#include "base/text.h"
#include "model/cells.h"
#include "model/one_file.h"

namespace qor {

namespace {

void AnalizarConversiones(Analisis& analisis, const Especificacion& especificacion) {
    for (int f = 0; f <= ultimaFila; ++f) {
        const auto& fila = especificacion.TablaArchivo[f];
        if (TienePares(fila.conversion)) {
            const bool principal = analisis.operaciones.OperacionDeCampo(Recortar(fila.campo)) == 0;
            (principal ? analisis.HayConversiones : analisis.HayConversionesStep) = true;
        } else if (!EstaEnBlanco(fila.conversion)) {
            analisis.HayConversiones = true;
        }
    }
}

}  // namespace

Analisis Analizar(const Especificacion& especificacion, const Opciones& opciones) {
    Analisis analisis;
    auto& operaciones = analisis.operaciones = ActualizarOperaciones(especificacion, 0);
    const bool haySteps = operaciones.ContarFilasOperacion(1) > 0;
    analisis.ArchivoUnico = opciones.OneFileOption() && AdmiteArchivoUnico(especificacion, opciones) && haySteps;
    analisis.LargoIdentificador = static_cast<int>(ObtenerIdentificador(opciones.Identificadores, 0).size());
    AnalizarConversiones(analisis, especificacion);

    const bool soloSesion = SoloSesion(opciones, operaciones);
    analisis.ManejoErrores = opciones.ErrorHandlingCheck == 1 && !soloSesion;
    const bool conRepetidas = PorLlamada(opciones, operaciones) && opciones.SafeCallTransactionCheck == 1;
    analisis.HayJuegoDatos = operaciones.HayTransaccion && (soloSesion || conRepetidas);
    return analisis;
}

void AnalizarClaves(Analisis& analisis, const Especificacion& especificacion) {
    bool hayConClave = false;
    analisis.HayStepSinClave = false;
    for (const int r : CabezasStepLoop(especificacion)) {
        const bool sinClave = EstaEnBlanco(ValorDeMarca(especificacion.TablaTransaccion[r].nota, 7));
        (sinClave ? analisis.HayStepSinClave : hayConClave) = true;
    }
    analisis.ClavesMezcladas = analisis.HayStepSinClave && hayConClave;
}

std::string_view ObtenerIdentificador(std::string_view identificadores, int n) {
    for (; n > 0; --n) {
        const auto coma = identificadores.find(',');
        if (coma == std::string_view::npos) return {};
        identificadores.remove_prefix(coma + 1);
    }
    return AntesDe(identificadores, ',');
}

}  // namespace qor
