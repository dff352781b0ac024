#include "app/qt/practice_actions.h"

#include "base/busy_pointer.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "practice/recording_load.h"
#include "practice/stored_recordings.h"
#include "sap/widths.h"

namespace qor {

void GuardarGrabacionElegida(const std::filesystem::path& sistema, const TextosIdioma& textos, Vista& vista) {
    const auto archivo = vista.ElegirParaAbrir({ClaseDeArchivo::Grabacion});
    if (!archivo) return;
    const auto advertir = [&](int que, const FalloDeArchivo& fallo) {
        vista.Advertir(ConDetalle(MensajeLiteral(TextoDelModelo(Palabra(textos, que)) + "."), fallo));
    };
    GrabacionDeArchivo grabacion;
    try {
        const ConPunteroOcupado puntero(vista);
        grabacion = LeerGrabacionDeArchivo(*archivo);
    } catch (const FalloDeGrabacion& fallo) {
        return advertir(fallo.Palabra(), fallo);
    } catch (const FalloDeArchivo& fallo) {
        return advertir(palabra::NoSePuedeLeerLaGrabacion, fallo);
    }
    try {
        BaseDePractica base(sistema);
        GuardarGrabacion(base, grabacion);
    } catch (const FalloDeArchivo& fallo) {
        return advertir(palabra::NoSePuedeGuardarLaGrabacion, fallo);
    }
    const auto que = Palabra(textos, palabra::SeGuardaLaGrabacion).arg(TextoQt(grabacion.nombre));
    const auto cuantas = Palabra(textos, palabra::SusTransacciones).arg(grabacion.transacciones);
    vista.Informar(MensajeLiteral(TextoDelModelo(que) + "\r\n" + TextoDelModelo(cuantas)));
}

bool HayGrabacion(const std::filesystem::path& sistema) {
    try {
        BaseDePractica base(sistema, Acceso::Leer);
        return !GrabacionesDePractica(base).Todas().empty();
    } catch (const FalloDeArchivo&) {
        return true;  // the import tells what is wrong with the file
    }
}

void AvisarSinGrabaciones(const TextosIdioma& textos, Vista& vista) {
    vista.Informar(MensajeDePalabra(textos, palabra::NoTieneGrabacionesTodavia));
}

void AvisarAnchosDesconocidos(const Especificacion& especificacion, const std::filesystem::path& diccionario,
                              const TextosIdioma& textos, Vista& vista) {
    const auto campos = CamposSinAncho(especificacion);
    if (campos.empty()) return;
    Mensaje aviso = MensajeDePalabra(textos, palabra::NoConoceLosAnchosDe, {campos});
    aviso.detalle = diccionario.string();
    vista.Informar(aviso);
}

}  // namespace qor
