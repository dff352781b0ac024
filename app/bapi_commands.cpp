#include <memory>
#include <optional>
#include <ostream>

#include "app/command.h"
#include "app/console_view.h"
#include "app/practice_file.h"
#include "app/practice_session.h"
#include "bapi/catalogue.h"
#include "bapi/insertion.h"
#include "bapi/search.h"
#include "bapi/update.h"
#include "base/text.h"

namespace qor {

namespace {

struct Argumentos {
    std::optional<std::string> catalogo;
    std::string texto;  // what to find, or the name of a BAPI
    bool palabras = false;
    std::string documento;
    bool obligatorios = false;
    bool definicion = false;
    std::optional<std::string> practica;
};

using ArgumentosCompartidos = std::shared_ptr<Argumentos>;

std::filesystem::path ArchivoDe(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    return argumentos.catalogo ? std::filesystem::path(*argumentos.catalogo) : contexto.ajustes.ArchivoBAPI;
}

std::optional<CatalogoBAPI> Cargar(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    return RecuperarDatosBAPIs(ArchivoDe(contexto, argumentos), contexto.textos, contexto.vista);
}

bool SinHallazgo(const ContextoDeComando& contexto) {
    contexto.vista.Informar(Componer(contexto.textos, {374}));
    return false;
}

bool List(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto catalogo = Cargar(contexto, argumentos);
    if (!catalogo) return false;
    for (const auto& nodo : catalogo->nodos) contexto.salida << (nodo.esBAPI ? "  " : "") << TextoDeTerminal(nodo.texto) << '\n';
    return true;
}

bool Find(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto catalogo = Cargar(contexto, argumentos);
    if (!catalogo) return false;
    BusquedaBAPI busqueda(*catalogo);
    busqueda.Empezar(Mayusculas(DeArgumento(argumentos.texto)),
                     argumentos.palabras ? ModoDeBusqueda::Palabras : ModoDeBusqueda::SubCadena);
    bool hay = false;
    while (const auto nodo = busqueda.Siguiente()) {
        contexto.salida << TextoDeTerminal(catalogo->nodos[*nodo].texto) << '\n';
        hay = true;
    }
    return hay || SinHallazgo(contexto);
}

bool Show(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto catalogo = Cargar(contexto, argumentos);
    if (!catalogo) return false;
    const auto* const nodo = catalogo->Buscar(DeArgumento(argumentos.texto));
    if (nodo == nullptr) return SinHallazgo(contexto);
    std::string texto = QuitarMarcas(catalogo->DescripcionesBAPI[nodo->numero]);
    if (texto.starts_with("\r\n")) texto.erase(0, 2);  // the one in front of the first line
    if (!texto.empty()) contexto.salida << TextoDeTerminal(texto) << '\n';
    return true;
}

bool Insert(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    const auto catalogo = Cargar(contexto, argumentos);
    if (!catalogo) return false;
    const std::string nombre = DeArgumento(argumentos.texto);
    if (catalogo->Buscar(nombre) == nullptr) return SinHallazgo(contexto);
    const int fila = abierto.documento.especificacion.PrimeraPosicionLibreTransaccion();
    if (!argumentos.definicion && fila > ultimaFila) {
        contexto.vista.Advertir(Componer(contexto.textos, {515}));
        return false;
    }
    const auto resultado = ElegirBAPI(
        abierto.documento, ArchivoDe(contexto, argumentos), nombre, argumentos.definicion, fila,
        [&] { return std::optional(!argumentos.obligatorios); }, contexto.textos, contexto.vista);
    return resultado == ResultadoInsercion::Hecho && abierto.Guardar(contexto);
}

bool Update(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    auto ajustes = contexto.ajustes;
    ajustes.ArchivoBAPI = ArchivoDe(contexto, argumentos);
    auto sesion = EntrarEnPractica(contexto, ajustes, *argumentos.practica, Acceso::Leer);
    if (!sesion) return false;
    auto nuevo = ajustes.ArchivoBAPI;
    const PedidoDeActualizacion pedido{
        *sesion, contexto.textos, contexto.vista,          DirectorioDeCatalogosDePractica(contexto.directorioDeAjustes),
        nuevo,   [](bool) {},     [](int) { return true; }};
    if (ActualizarCatalogo(pedido) != ResultadoActualizacion::Hecha) return false;
    if (!RecuperarDatosBAPIs(nuevo, contexto.textos, contexto.vista)) return false;
    contexto.vista.Informar(Componer(contexto.textos, {242}));
    contexto.salida << nuevo.string() << '\n';
    return true;
}

Orden AgregarOrden(Orden bapi, Ordenes ordenes, const ArgumentosCompartidos& argumentos, const char* nombre,
                   const char* descripcion, bool (*accion)(const ContextoDeComando&, const Argumentos&)) {
    const Orden orden = bapi.Suborden(nombre, descripcion);
    AlLeer(orden, ordenes, argumentos, accion);
    return orden;
}

}  // namespace

void AgregarComandosDeBAPI(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto bapi = ordenes.raiz.Suborden("bapi", "Look into the BAPI catalogue, and insert a BAPI into a document");
    bapi.PedirSuborden();
    bapi.DejarPasar();
    bapi.Dato("--catalogue", argumentos->catalogo, "Catalogue file, in the place of the one of the settings").Tipo("FILE");
    AgregarOrden(bapi, ordenes, argumentos, "list", "Print every business object with its BAPIs", List);
    auto find = AgregarOrden(bapi, ordenes, argumentos, "find", "Print the names that hold a text", Find);
    find.Dato("TEXT", argumentos->texto, "Text to look for, in any case").Obligatoria();
    find.Marca("--words", argumentos->palabras, "Look for all its words in the documentation of the BAPIs");
    auto show = AgregarOrden(bapi, ordenes, argumentos, "show", "Print the documentation of a BAPI", Show);
    show.Dato("NAME", argumentos->texto, "Name of a BAPI").Obligatoria();
    auto insert = AgregarOrden(bapi, ordenes, argumentos, "insert", "Insert a BAPI behind the operations of a document", Insert);
    insert.Dato("DOCUMENT", argumentos->documento, "A .qor document").Obligatoria();
    insert.Dato("NAME", argumentos->texto, "Name of a BAPI").Obligatoria();
    insert.Marca("--mandatory", argumentos->obligatorios, "Rows for mandatory parameters only");
    insert.Marca("--definition", argumentos->definicion, "Declarations and call text only, without rows");
    auto update = AgregarOrden(bapi, ordenes, argumentos, "update", "Make a new catalogue from a practice system", Update);
    update.Pie(
        "The practice system answers with the catalogue in use. The new one goes into the directory practice beside the\n"
        "settings, and its path is printed. It asks first, so it starts with --yes alone, which also continues a run that was "
        "stopped.");
    AgregarOpcionPractice(update, argumentos->practica).Obligatoria();
}

}  // namespace qor
