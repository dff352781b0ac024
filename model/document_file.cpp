#include "model/document_file.h"

#include <optional>
#include <utility>

#include "base/failure.h"
#include "base/new_file.h"
#include "base/paths.h"
#include "base/phrase.h"
#include "base/text.h"
#include "base/values.h"
#include "base/words.h"
#include "model/document_format.h"
#include "model/gaps.h"

namespace qor {

namespace {

constexpr std::string_view extensionDeTrabajo = ".TMP";

Documento LeerDeArchivo(const std::filesystem::path& ruta, LineasDeDocumento* lineas) {
    Documento leido;
    leido.ruta = RutaAbsoluta(ruta);
    leido.canal = ArchivoBloqueado::Abrir(leido.ruta);
    leido.identidad = leido.canal.Identidad();
    const std::string texto = leido.canal.LeerTodo();
    LectorValores lector(texto);
    if (LeerDocumento(lector, leido.especificacion, leido.opciones, lineas) == Formato::Antiguo) {
        if (lineas != nullptr) *lineas = {};
        lector.VolverAlPrincipio();
        ImportarFormatoAntiguo(lector, leido.especificacion, leido.opciones);
    }
    return leido;
}

// Answers why it could not be done.
std::optional<Mensaje> Abrir(Documento& documento, const std::filesystem::path& ruta, const TextosIdioma& textos,
                             LineasDeDocumento* lineas) {
    try {
        documento = LeerDeArchivo(ruta, lineas);
        return std::nullopt;
    } catch (const FalloDeEjecucion& fallo) {
        return ConDetalle(Componer(textos, {335}), fallo, ruta);
    }
}

void EscribirEnArchivo(Documento& documento, const std::filesystem::path& destino,
                       const std::optional<IdentidadDeArchivo>& esperada) {
    if (Mayusculas(TextoDeRuta(destino)).ends_with(extensionDeTrabajo)) {
        throw FalloDeArchivo("A document can't have the name of its own work file", destino);
    }
    ArchivoNuevo nuevo(destino, extensionDeTrabajo, documento.Bloqueado() ? &documento.canal : nullptr);
    nuevo.Escribir(EscribirDocumento(documento.especificacion, documento.opciones));
    ArchivoBloqueado canal = nuevo.PonerEnSuLugar(esperada);
    documento.identidad.reset();
    if (canal.Abierto()) documento.identidad = nuevo.Identidad();
    documento.canal = std::move(canal);
    documento.ruta = destino;
    documento.deshacer.Reiniciar();
    documento.DarPorGuardado();
}

// Runs what writes the document; the message tells why it failed.
template <typename Accion>
bool Guardar(const TextosIdioma& textos, Vista& vista, Accion accion) {
    try {
        return accion();
    } catch (const std::exception& fallo) {
        vista.Advertir(ConDetalle(Componer(textos, {336}), fallo));
        return false;
    }
}

// The file is the one that was read or written last; else the user is asked, and the answer is the state that may be overwritten.
bool PuedeSobrescribir(const Documento& documento, std::optional<IdentidadDeArchivo>& presente, const TextosIdioma& textos,
                       Vista& vista) {
    presente = Identidad(documento.ruta);
    if (!presente || presente == documento.identidad) return true;
    const std::string nombre = TextoDeRuta(documento.ruta);
    Mensaje pregunta = MensajeLiteral("Another program has changed the document " + nombre + " since it was read. Overwrite it?");
    pregunta.enPantalla = Llenar(textos.Palabra(palabra::OtroProgramaCambioElDocumento), {nombre});
    return vista.Preguntar(pregunta, Botones::SiNo) == Respuesta::Si;
}

}  // namespace

bool AbrirDocumento(Documento& documento, const std::filesystem::path& ruta, const TextosIdioma& textos, Vista& vista) {
    const auto motivo = Abrir(documento, ruta, textos, nullptr);
    if (motivo) vista.Advertir(*motivo);
    return !motivo;
}

std::optional<Mensaje> AbrirDocumento(Documento& documento, const std::filesystem::path& ruta, const TextosIdioma& textos,
                                      LineasDeDocumento& lineas) {
    return Abrir(documento, ruta, textos, &lineas);
}

bool GuardarDocumento(Documento& documento, const TextosIdioma& textos, Vista& vista) {
    return GuardarDocumentoComo(documento, documento.ruta, textos, vista);
}

bool GuardarDocumentoComo(Documento& documento, const std::filesystem::path& ruta, const TextosIdioma& textos, Vista& vista) {
    if (!TablasOK(documento.especificacion, textos, vista)) return false;
    return Guardar(textos, vista, [&] {
        const auto destino = RutaAbsoluta(ruta);
        std::optional<IdentidadDeArchivo> presente;
        if (destino == documento.ruta && !PuedeSobrescribir(documento, presente, textos, vista)) return false;
        EscribirEnArchivo(documento, destino, presente);
        return true;
    });
}

}  // namespace qor
