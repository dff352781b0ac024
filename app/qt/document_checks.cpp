#include "app/qt/document_checks.h"

#include <string>
#include <vector>

#include "base/failure.h"
#include "base/message_text.h"
#include "base/new_file.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "editor/document_commands.h"

namespace qor {

namespace {

Mensaje MensajeDe(const Ventana& ventana, int palabra) { return MensajeDePalabra(ventana.textos, palabra); }

}  // namespace

ControlesDelDocumento::ControlesDelDocumento(Ventana& ventana, std::function<void()> alGuardarDocumento)
    : ventana_(ventana), alGuardarDocumento_(std::move(alGuardarDocumento)) {
    if (ventana_.documento.ruta.empty()) return;
    try {
        clases_ = ClasesDeCampos::DeDocumento(ventana_.documento.ruta);
    } catch (const FalloDeEjecucion& fallo) {
        fallo_ = Palabra(ventana_.textos, palabra::NoSePuedenLeerLosControles) + QLatin1Char(' ') +
                 QString::fromStdString(EnPantalla(FalloDe(fallo), ventana_.textos));
    }
}

void ControlesDelDocumento::Poner(const std::string& campo, const ClaseDeCampo& clase) {
    clases_.Poner(campo, clase);
    cambiados_ = true;
}

bool ControlesDelDocumento::Guardar() {
    auto& documento = ventana_.documento;
    if (documento.ruta.empty()) {
        const auto pregunta = MensajeDe(ventana_, palabra::GuardarAntesElDocumento);
        if (ventana_.vista.Preguntar(pregunta, Botones::SiNo) != Respuesta::Si || !SaveAsOption(ventana_)) return false;
        if (alGuardarDocumento_) alGuardarDocumento_();
    }
    std::vector<std::string> nombres;
    const auto& tabla = documento.especificacion.TablaArchivo;
    for (int fila = 0; fila < documento.especificacion.FilasArchivo(); ++fila) {
        nombres.push_back(tabla[static_cast<std::size_t>(fila)].campo);
    }
    try {
        GuardarArchivo(ClasesDeCampos::ArchivoDe(documento.ruta), clases_.Texto(nombres));
    } catch (const FalloDeEjecucion& fallo) {
        ventana_.vista.Advertir(ConDetalle(MensajeDe(ventana_, palabra::NoSePuedenGuardarLosControles), fallo));
        return false;
    }
    cambiados_ = false;
    fallo_.clear();
    return true;
}

bool ControlesDelDocumento::PuedenDejarse() {
    if (!cambiados_) return true;
    const auto pregunta = MensajeDe(ventana_, palabra::GuardarLosControlesCambiados);
    switch (ventana_.vista.Preguntar(pregunta, Botones::SiNoCancelar)) {
        case Respuesta::Si: return Guardar();
        case Respuesta::No: return true;
        default: return false;
    }
}

}  // namespace qor
