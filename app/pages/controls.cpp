#include "app/pages/controls.h"

namespace qor {

Controles::Controles(const QObject& ventana) {
    for (auto* const control : ventana.findChildren<QObject*>()) {
        const QByteArray nombre = control->objectName().toLatin1();
        // The toolkit's own parts of a control have names too.
        if (!nombre.isEmpty() && !nombre.startsWith("qt_") && !nombre.startsWith("_q_")) porNombre_.insert(nombre, control);
    }
}

}  // namespace qor
