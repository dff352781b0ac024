#include "practice/recording_load.h"

#include "base/code_page.h"
#include "base/files.h"
#include "base/words.h"
#include "practice/recordings.h"
#include "practice/session_transfer.h"
#include "practice/stored_recordings.h"

namespace qor {

GrabacionDeArchivo LeerGrabacionDeArchivo(const std::filesystem::path& archivo) {
    GrabacionDeArchivo grabacion{DesdeUtf8ConFaltas(archivo.filename().string()), LeerArchivo(archivo, limiteDeSesion), 0};
    try {
        grabacion.transacciones = Grabaciones().Agregar(grabacion.texto);
    } catch (const FalloDeEjecucion& fallo) {
        throw FalloDeGrabacion("The recording can't be read", palabra::NoSePuedeLeerLaGrabacion, fallo.what(), archivo);
    }
    if (grabacion.transacciones == 0) {
        throw FalloDeGrabacion("Nothing was recorded", palabra::NoSeGraboNada, "It holds no recording and no session", archivo);
    }
    return grabacion;
}

void GuardarGrabacion(BaseDePractica& base, const GrabacionDeArchivo& grabacion) {
    GrabacionesDePractica(base).Poner(grabacion.nombre, grabacion.texto);
    base.TerminarUnidad();
}

}  // namespace qor
