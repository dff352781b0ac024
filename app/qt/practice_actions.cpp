#include "app/qt/practice_actions.h"

#include "base/busy_pointer.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "practice/recording_load.h"
#include "practice/stored_recordings.h"
#include "sap/widths.h"

namespace qor {

void GuardarGrabacionElegida(const std::filesystem::path& sistema, const std::filesystem::path& directorio,
                             const TextosIdioma& textos, Vista& vista) {
    const auto archivo = vista.ElegirParaAbrir(directorio, "*.*|*");
    if (!archivo) return;
    const auto advertir = [&](const char* que, const FalloDeArchivo& fallo) {
        vista.Advertir(ConDetalle(MensajeLiteral(TextoDelModelo(Palabra(textos, que)) + "."), fallo));
    };
    GrabacionDeArchivo grabacion;
    try {
        const ConPunteroOcupado puntero(vista);
        grabacion = LeerGrabacionDeArchivo(*archivo);
    } catch (const FalloDeGrabacion& fallo) {
        return advertir(fallo.Que(), fallo);
    } catch (const FalloDeArchivo& fallo) {
        return advertir("The recording can't be read", fallo);
    }
    try {
        BaseDePractica base(sistema);
        GuardarGrabacion(base, grabacion);
    } catch (const FalloDeArchivo& fallo) {
        return advertir("The practice system can't keep the recording", fallo);
    }
    const auto que = Palabra(textos, "The practice system keeps the recording %1.").arg(TextoQt(grabacion.nombre));
    const auto cuantas = Palabra(textos, "Transactions: %1.").arg(grabacion.transacciones);
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
    vista.Informar(
        MensajeLiteral(TextoDelModelo(Palabra(textos,
                                              "The practice system holds no recording yet. The command \"Keep a recording in the "
                                              "practice system\" of the menu \"Connection\" puts one in."))));
}

void AvisarAnchosDesconocidos(const Especificacion& especificacion, const std::filesystem::path& diccionario,
                              const TextosIdioma& textos, Vista& vista) {
    const auto campos = CamposSinAncho(especificacion);
    if (campos.empty()) return;
    Mensaje aviso = MensajeLiteral(TextoDelModelo(Palabra(textos,
                                                          "The practice system does not know the widths of: %1. Structures and "
                                                          "their fields can be added in this file, which the logon reads:")
                                                      .arg(TextoQt(campos))));
    aviso.detalle = diccionario.string();
    vista.Informar(aviso);
}

}  // namespace qor
