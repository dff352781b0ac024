#include "editor/document_commands.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/values.h"
#include "editor/cell_rules.h"
#include "generator/checks.h"
#include "model/document_format.h"

namespace qor {

namespace {

bool DifiereDelDocumento(const Editor& editor) { return editor.UndoButton || editor.HayCambios; }

// Everything but the questions of NewOption.
void VaciarEditor(Editor& editor) {
    editor.especificacion = Especificacion{};
    editor.opciones = Opciones{};
    editor.archivo = RejillaArchivo{};
    editor.transaccion = RejillaTransaccion{};
    editor.busquedas = Busquedas{};
    editor.ventana = EstadoDeVentana{};
    editor.DuplicadoRevisado = false;
    editor.RutaDocumento.clear();
    editor.NombreDocumento.clear();
    editor.CanalDocumento.Cerrar();
    ReiniciarDeshacer(editor);
    editor.HayCambios = false;
}

bool TablasSinHuecos(Editor& editor) {
    editor.GrabacionFallida = !TablasOK(editor.especificacion, editor.textos, editor.vista);
    return !editor.GrabacionFallida;
}

// Runs the save dialog. Nothing changes when the user cancels it.
void SelGrabar(Editor& editor) {
    if (const auto ruta = editor.vista.ElegirParaGrabar(filtroDeDocumentos)) FijarDocumento(editor, *ruta);
}

// The lines of the file grid, up to the first row with an empty name; through the change rule, so visible rows come out cut and in
// upper case.
void LlenarRejillaArchivo(Editor& editor) {
    for (int i = 0; i < lineasArchivo; ++i) {
        const auto fila = editor.especificacion.TablaArchivo[i];
        if (fila.campo.empty()) break;
        CambiarCelda(editor, Columna::Text1, i, fila.campo);
        CambiarCelda(editor, Columna::Text2, i, fila.ancho);
        const auto linea = static_cast<std::size_t>(i);
        if (!EstaEnBlanco(fila.nota)) editor.archivo.Text1[linea].color = Color::Rojo;
        if (!EstaEnBlanco(fila.conversion)) editor.archivo.ABAP[linea].color = Color::Rojo;
    }
}

void LlenarRejillaTransaccion(Editor& editor) {
    for (int i = 0; i < lineasTransaccion; ++i) {
        const auto fila = editor.especificacion.TablaTransaccion[i];
        if (fila.SinNombres()) break;
        CambiarCelda(editor, Columna::Text6, i, fila.programa);
        CambiarCelda(editor, Columna::Text3, i, fila.dynpro);
        CambiarCelda(editor, Columna::Text4, i, fila.campo);
        if (!EstaEnBlanco(fila.nota)) editor.transaccion.Text4[static_cast<std::size_t>(i)].color = Color::Rojo;
        CambiarCelda(editor, Columna::Text5, i, fila.valor);
    }
}

void LeerDelDocumento(Editor& editor, const std::string& ruta) {
    FijarDocumento(editor, ruta);
    editor.DirectorioDocumentos = ObtenerPath(editor.RutaDocumento);
    editor.CanalDocumento = ArchivoBloqueado::Abrir(RutaDelSistema(editor.RutaDocumento));
    const std::string texto = editor.CanalDocumento.LeerTodo();
    LectorValores lector(texto);
    if (LeerDocumento(lector, editor.especificacion, editor.opciones) == Formato::Antiguo) {
        lector.VolverAlPrincipio();
        ImportarFormatoAntiguo(lector, editor.especificacion, editor.opciones);
    }
    LlenarRejillaArchivo(editor);
    LlenarRejillaTransaccion(editor);
    ReiniciarDeshacer(editor);
    editor.HayCambios = false;
}

// Offers to save what differs from the document. False stops the command that asked: the user cancels, or wants to save and the
// save fails, so that nothing is lost.
bool OfrecerGrabacion(Editor& editor, int mensaje) {
    if (!DifiereDelDocumento(editor)) return true;
    switch (editor.vista.Preguntar(Componer(editor.textos, {mensaje}), Botones::SiNoCancelar)) {
        case Respuesta::Si: {
            const bool grabado = SaveOption(editor);
            editor.GrabacionFallida = false;
            return grabado;
        }
        case Respuesta::No: return true;
        default: return false;
    }
}

bool EsSuPropioTemporal(const std::string& ruta) { return Mayusculas(ruta).ends_with(".TMP"); }

void EscribirYReemplazar(Editor& editor) {
    if (EsSuPropioTemporal(editor.RutaDocumento)) throw FalloDeEjecucion("the document's name is that of its temporary file");
    const auto destino = RutaDelSistema(editor.RutaDocumento);
    const auto temporal = RutaDelSistema(QuitarExtension(editor.RutaDocumento) + ".TMP");
    // The lock on the new file is taken before it gets its name, so there is no moment without one.
    ArchivoBloqueado nuevo = ArchivoBloqueado::Crear(temporal);
    nuevo.EscribirTodo(EscribirDocumento(editor.especificacion, editor.opciones));
    editor.CanalDocumento.Cerrar();
    // A document that another holds open is not replaced under it.
    ArchivoBloqueado anterior;
    if (std::filesystem::exists(destino)) anterior = ArchivoBloqueado::Abrir(destino);
    ReemplazarArchivo(temporal, destino);
    editor.CanalDocumento = std::move(nuevo);
}

}  // namespace

void NewOption(Editor& editor) {
    if (OfrecerGrabacion(editor, 300)) VaciarEditor(editor);
}

bool OpenOption(Editor& editor) {
    if (!OfrecerGrabacion(editor, 334)) return false;
    VaciarEditor(editor);
    const bool alInicio = std::exchange(editor.AbrirDesdeComando, false);
    const auto elegido = alInicio ? std::optional(editor.ArchivoInicial)
                                  : editor.vista.ElegirParaAbrir(editor.DirectorioDocumentos, filtroDeDocumentos);
    if (!elegido || EstaEnBlanco(*elegido)) return false;
    try {
        LeerDelDocumento(editor, *elegido);
        return true;
    } catch (const FalloDeEjecucion&) {
        editor.vista.Advertir(Componer(editor.textos, {335}));
        VaciarEditor(editor);
        editor.TerminarPrograma = alInicio;
        return false;
    }
}

bool SaveOption(Editor& editor) {
    if (!TablasSinHuecos(editor)) return false;
    if (EstaEnBlanco(editor.RutaDocumento)) SelGrabar(editor);
    if (EstaEnBlanco(editor.RutaDocumento)) return false;
    try {
        EscribirYReemplazar(editor);
    } catch (const std::exception&) {
        editor.vista.Advertir(Componer(editor.textos, {336}));
        return false;
    }
    ReiniciarDeshacer(editor);
    editor.HayCambios = false;
    return true;
}

bool CerrarDocumento(Editor& editor) {
    if (!OfrecerGrabacion(editor, 300)) return false;
    editor.CanalDocumento.Cerrar();
    return true;
}

bool SaveAsOption(Editor& editor) {
    if (!TablasSinHuecos(editor)) return false;
    SelGrabar(editor);
    return !EstaEnBlanco(editor.RutaDocumento) && SaveOption(editor);
}

std::string TituloDeVentana(const Editor& editor) {
    std::string titulo = tituloDelPrograma;
    if (!editor.NombreDocumento.empty()) titulo += "  (" + editor.NombreDocumento + ")";
    return titulo;
}

void FijarDocumento(Editor& editor, const std::string& ruta) {
    editor.RutaDocumento = RutaAbsoluta(ruta);
    editor.NombreDocumento = NombreDeRuta(editor.RutaDocumento);
}

}  // namespace qor
