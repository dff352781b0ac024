#include "editor/document_commands.h"

#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "editor/cell_rules.h"
#include "editor/close_gaps.h"
#include "editor/grids.h"
#include "model/suggested_name.h"

namespace qor {

namespace {

void Vaciar(Ventana& ventana) {
    ventana.documento = Documento{};
    ventana.Reiniciar();
}

// The lines of the file grid, up to the first row with an empty name. Visible rows come out cut and in upper case.
void LlenarRejillaArchivo(Ventana& ventana) {
    for (int i = 0; i < lineasArchivo; ++i) {
        // A copy: the change rule writes into the row.
        const FilaDeArchivo fila = ventana.documento.especificacion.TablaArchivo[i];
        if (fila.campo.empty()) break;
        for (const Columna columna : columnasDeCeldasDeArchivo)
            PonerEnCelda(ventana, {columna, i}, fila.*ColumnaDeArchivo(columna));
        const auto linea = static_cast<std::size_t>(i);
        if (!EstaEnBlanco(fila.nota)) ventana.archivo.campo[linea].color = Color::Rojo;
        if (!EstaEnBlanco(fila.conversion)) ventana.archivo.conversion[linea].color = Color::Rojo;
    }
}

void LlenarRejillaTransaccion(Ventana& ventana) {
    for (int i = 0; i < lineasTransaccion; ++i) {
        const FilaDeTransaccion fila = ventana.documento.especificacion.TablaTransaccion[i];
        if (fila.SinNombres()) break;
        for (const Columna columna : columnasDeCeldasDeTransaccion) {
            PonerEnCelda(ventana, {columna, i}, fila.*ColumnaDeTransaccion(columna));
        }
        if (!EstaEnBlanco(fila.nota)) ventana.transaccion.campo[static_cast<std::size_t>(i)].color = Color::Rojo;
    }
}

// Offers to save what differs from the document. False stops the command that asked: the user cancels, or wants to save and the
// save fails, so that nothing is lost.
bool OfrecerGrabacion(Ventana& ventana, int mensaje) {
    if (!ventana.documento.HayCambios()) return true;
    switch (ventana.vista.Preguntar(Componer(ventana.textos, {mensaje}), Botones::SiNoCancelar)) {
        case Respuesta::Si: return SaveOption(ventana);
        case Respuesta::No: return true;
        default: return false;
    }
}

// Saves where the user chooses. A document that has a path keeps it when the dialog is cancelled, and is saved there.
bool GuardarDondeSeElija(Ventana& ventana) {
    auto& documento = ventana.documento;
    const auto elegida = ventana.vista.ElegirParaGrabar(
        {ClaseDeArchivo::Documento, filtroDeDocumentos, documento.ruta, NombreSugerido(documento, ".qor", ventana.textos)});
    if (elegida) return GuardarDocumentoComo(documento, *elegida, ventana.textos, ventana.vista);
    return !documento.ruta.empty() && GuardarDocumento(documento, ventana.textos, ventana.vista);
}

}  // namespace

bool NewOption(Ventana& ventana) {
    if (!OfrecerGrabacion(ventana, 300)) return false;
    Vaciar(ventana);
    return true;
}

bool DejarDocumento(Ventana& ventana) {
    if (!OfrecerGrabacion(ventana, 334)) return false;
    Vaciar(ventana);
    return true;
}

bool OpenOption(Ventana& ventana, const std::filesystem::path& ruta) {
    if (!DejarDocumento(ventana)) return false;
    if (!AbrirDocumento(ventana.documento, ruta, ventana.textos, ventana.vista)) return false;
    LlenarRejillaArchivo(ventana);
    LlenarRejillaTransaccion(ventana);
    return true;
}

void RestaurarTrabajo(Ventana& ventana, Documento trabajo) {
    try {
        if (!trabajo.ruta.empty() && Existe(trabajo.ruta)) trabajo.canal = ArchivoBloqueado::Abrir(trabajo.ruta);
    } catch (const FalloDeArchivo& fallo) {
        ventana.vista.Advertir(ConDetalle(Componer(ventana.textos, {335}), fallo));
        trabajo.ruta.clear();
        trabajo.identidad.reset();
    }
    ventana.documento = std::move(trabajo);
    ventana.Reiniciar();
    MostrarArchivoSinFocus(ventana, 0);
    MostrarTransaccionSinFocus(ventana, 0);
}

bool SaveOption(Ventana& ventana) {
    auto& documento = ventana.documento;
    if (!OfrecerQuitarHuecos(ventana)) return false;
    if (!documento.ruta.empty()) return GuardarDocumento(documento, ventana.textos, ventana.vista);
    return GuardarDondeSeElija(ventana);
}

bool SaveAsOption(Ventana& ventana) { return OfrecerQuitarHuecos(ventana) && GuardarDondeSeElija(ventana); }

bool CerrarDocumento(Ventana& ventana) {
    if (!OfrecerGrabacion(ventana, 300)) return false;
    ventana.documento.canal.Cerrar();
    return true;
}

std::string TituloDeVentana(const Documento& documento) {
    std::string titulo = tituloDelPrograma;
    if (!documento.ruta.empty()) titulo += "  (" + documento.ruta.filename().string() + ")";
    return titulo;
}

}  // namespace qor
