#include "app/rehearsal_lines.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

#include "base/text.h"

namespace qor {

namespace {

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

// A piece that begins anew: a number, with nothing or "=" behind it.
bool EsFalloNuevo(std::string_view pieza) {
    const auto cortada = Recortar(pieza);
    const auto fin = std::find_if_not(cortada.begin(), cortada.end(), EsDigito);
    return fin != cortada.begin() && (fin == cortada.end() || *fin == '=');
}

// The pieces between commas; one that `empieza` does not take for a beginning belongs to the piece before it.
template <typename Empieza>
std::vector<std::string_view> PartirEnComas(std::string_view texto, Empieza empieza) {
    std::vector<std::string_view> piezas;
    std::size_t desde = 0;
    while (desde <= texto.size()) {
        auto hasta = texto.find(',', desde);
        while (hasta != std::string_view::npos) {
            const auto siguiente = texto.find(',', hasta + 1);
            if (empieza(texto.substr(hasta + 1, siguiente == std::string_view::npos ? siguiente : siguiente - hasta - 1))) break;
            hasta = siguiente;
        }
        const auto pieza = Recortar(texto.substr(desde, hasta == std::string_view::npos ? hasta : hasta - desde));
        if (!pieza.empty()) piezas.push_back(pieza);
        if (hasta == std::string_view::npos) break;
        desde = hasta + 1;
    }
    return piezas;
}

std::optional<std::size_t> LeerNumero(std::string_view texto) {
    std::size_t numero = 0;
    const auto [fin, error] = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
    if (error != std::errc() || fin != texto.data() + texto.size()) return std::nullopt;
    return numero;
}

}  // namespace

std::string LeerFallosPedidos(std::string_view texto, FallosPorRegistro& fallos) {
    FallosPorRegistro leidos;
    for (const auto pieza : PartirEnComas(texto, EsFalloNuevo)) {
        if (!LeerFalloPedido(pieza, leidos)) return std::string(pieza);
    }
    fallos = std::move(leidos);
    return {};
}

bool LeerTramoPedido(std::string_view texto, TramoDeRegistros& tramo) {
    const auto cortado = Recortar(texto);
    tramo = {};
    if (cortado.empty()) return true;
    const std::string junto = QuitarBlancos(cortado);
    return LeerTramo(junto.find('-') == std::string::npos ? junto + "-" + junto : junto, tramo);
}

std::string LeerParesPedidos(std::string_view texto, std::vector<std::pair<std::string, std::string>>& pares) {
    std::vector<std::pair<std::string, std::string>> leidos;
    const auto empieza = [](std::string_view pieza) { return pieza.find('=') != std::string_view::npos; };
    for (const auto pieza : PartirEnComas(texto, empieza)) {
        const std::string nombre = Mayusculas(Recortar(AntesDe(pieza, '=')));
        if (nombre.empty() || !empieza(pieza)) return std::string(pieza);
        leidos.emplace_back(nombre, Recortar(DespuesDe(pieza, '=')));
    }
    pares = std::move(leidos);
    return {};
}

std::string TablasDeCarpeta(const std::filesystem::path& carpeta) {
    std::vector<std::string> archivos;
    std::error_code error;
    for (std::filesystem::directory_iterator entrada(carpeta, error), fin; !error && entrada != fin; entrada.increment(error)) {
        const auto nombre = entrada->path().filename().string();
        const auto letra = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || EsDigito(c) || c == '_'; };
        const auto tronco = entrada->path().stem().string();
        if (entrada->path().extension() == ".csv" && std::all_of(tronco.begin(), tronco.end(), letra)) archivos.push_back(nombre);
    }
    std::sort(archivos.begin(), archivos.end());
    std::string tablas;
    for (const auto& archivo : archivos) {
        if (!tablas.empty()) tablas += ", ";
        tablas += Mayusculas(archivo.substr(0, archivo.rfind('.'))) + "=" + archivo;
    }
    return tablas;
}

// ---- Records ----

void RegistrosVistos::Poner(const ResultadoDeEnsayo* resultado) {
    resultado_ = resultado;
    fallos_.clear();
    cuentas_ = {};
    todos_ = true;
    filas_.clear();
    if (resultado == nullptr) return;
    for (const auto estado : resultado->registros) ++cuentas_[static_cast<std::size_t>(estado)];
    for (std::size_t i = 0; i < resultado->fallos.size(); ++i) fallos_.try_emplace(resultado->fallos[i].registro, i);
}

const FalloDeEnsayo* RegistrosVistos::Fallo(std::size_t registro) const {
    const auto fallo = fallos_.find(registro);
    return fallo == fallos_.end() ? nullptr : &resultado_->fallos[fallo->second];
}

std::string RegistrosVistos::Motivo(std::size_t registro) const {
    if (const auto* const fallo = Fallo(registro)) return decir_(fallo->motivo);
    const auto& volcado = resultado_->volcado;
    return volcado && volcado->registro == registro ? volcado->nombre + " " + volcado->texto : std::string();
}

std::vector<Lugar> RegistrosVistos::Culpables(std::size_t registro) const {
    std::vector<Lugar> celdas;
    const auto primero = fallos_.find(registro);
    if (primero == fallos_.end()) return celdas;
    for (std::size_t i = primero->second; i < resultado_->fallos.size(); ++i) {
        const auto& fallo = resultado_->fallos[i];
        if (fallo.registro == registro && fallo.celda.parte != Lugar::Parte::Ninguna) celdas.push_back(fallo.celda);
    }
    return celdas;
}

bool RegistrosVistos::Sirve(std::size_t registro, std::optional<EstadoDeRegistro> estado, std::string_view buscado) const {
    if (estado && Estado(registro) != *estado) return false;
    if (buscado.empty()) return true;
    const auto motivo = Motivo(registro);
    return !motivo.empty() && Mayusculas(motivo).find(buscado) != std::string::npos;
}

void RegistrosVistos::Filtrar(std::optional<EstadoDeRegistro> estado, std::string_view texto) {
    const std::string buscado = Mayusculas(Recortar(texto));
    filas_.clear();
    todos_ = !estado && buscado.empty();
    if (todos_ || resultado_ == nullptr) return;
    const auto numero = LeerNumero(buscado);
    for (std::size_t registro = 1; registro <= Todos(); ++registro) {
        const bool pedido = numero == registro && (!estado || Estado(registro) == *estado);
        if (pedido || Sirve(registro, estado, buscado)) filas_.push_back(static_cast<std::uint32_t>(registro));
    }
}

std::optional<std::size_t> RegistrosVistos::FilaDe(std::size_t registro) const {
    if (registro < 1 || registro > Todos()) return std::nullopt;
    if (todos_) return registro - 1;
    const auto hallada = std::lower_bound(filas_.begin(), filas_.end(), registro);
    if (hallada == filas_.end() || *hallada != registro) return std::nullopt;
    return static_cast<std::size_t>(hallada - filas_.begin());
}

// ---- What a record sends ----

namespace {

void PonerCampo(std::vector<LineaDeEnvio>& lineas, const CampoEnviado& campo, int padre, bool gris) {
    auto& linea = lineas.emplace_back();
    linea.clase = LineaDeEnvio::Clase::Campo;
    linea.padre = padre;
    linea.nombre = campo.campo;
    linea.valor = campo.valor;
    linea.deArchivo = campo.campoDeArchivo;
    linea.grupo = campo.grupo;
    linea.deRegistro = campo.deRegistro;
    linea.celda = campo.celda;
    linea.sinEnviar = campo.sinEnviar;
    linea.gris = gris || !campo.sinEnviar.Vacia();
}

void PonerPantalla(std::vector<LineaDeEnvio>& lineas, const PantallaEnviada& pantalla, int padre, bool gris) {
    const int propia = static_cast<int>(lineas.size());
    auto& linea = lineas.emplace_back();
    linea.clase = LineaDeEnvio::Clase::Pantalla;
    linea.padre = padre;
    linea.nombre = pantalla.programa;
    if (!pantalla.dynpro.empty()) linea.nombre += " " + pantalla.dynpro;
    linea.celda = pantalla.celda;
    linea.sinEnviar = pantalla.sinEnviar;
    linea.gris = gris = gris || !pantalla.sinEnviar.Vacia();
    for (const auto& campo : pantalla.campos) PonerCampo(lineas, campo, propia, gris);
}

}  // namespace

std::vector<LineaDeEnvio> LineasDe(const std::vector<Envio>& envios, const std::vector<Lugar>& culpables) {
    std::vector<LineaDeEnvio> lineas;
    for (const auto& envio : envios) {
        const int propia = static_cast<int>(lineas.size());
        auto& linea = lineas.emplace_back();
        linea.clase = LineaDeEnvio::Clase::Operacion;
        linea.nombre = envio.nombre;
        linea.sinEnviar = envio.sinEnviar;
        linea.gris = !envio.sinEnviar.Vacia();
        linea.fallado = envio.fallado;
        linea.enSesion = envio.enSesion;
        const bool gris = linea.gris;
        for (const auto& pantalla : envio.pantallas) PonerPantalla(lineas, pantalla, propia, gris);
        for (const auto& mensaje : envio.mensajes) {
            auto& dicho = lineas.emplace_back();
            dicho.clase = LineaDeEnvio::Clase::Mensaje;
            dicho.padre = propia;
            dicho.nombre = mensaje;
            dicho.fallado = !mensaje.empty() && std::string_view("AEX").find(mensaje.front()) != std::string_view::npos;
        }
        if (!envio.fallado) continue;
        for (auto i = static_cast<std::size_t>(propia); i < lineas.size(); ++i) {
            auto& campo = lineas[i];
            if (campo.clase == LineaDeEnvio::Clase::Campo && !campo.gris) {
                campo.fallado = std::find(culpables.begin(), culpables.end(), campo.celda) != culpables.end();
            }
        }
    }
    return lineas;
}

// ---- Totals ----

std::vector<LineaDeTotal> TotalesDe(const ResultadoDeEnsayo& resultado, const Especificacion& especificacion) {
    using Titulo = LineaDeTotal::Titulo;
    constexpr int textoDeCondicion = 1;
    constexpr int conversion = 3;
    std::vector<LineaDeTotal> lineas;
    for (const auto& condicion : resultado.condiciones) {
        lineas.push_back({Titulo::Condiciones, condicion.nombre, condicion.veces, condicion.ciertas,
                          Lugar::EnCondicion(condicion.fila, textoDeCondicion)});
    }
    for (const auto& par : resultado.pares) {
        std::string campo;
        if (par.fila >= 0 && static_cast<std::size_t>(par.fila) < especificacion.TablaArchivo.size()) {
            campo = std::string(Recortar(especificacion.TablaArchivo[static_cast<std::size_t>(par.fila)].campo)) + ": ";
        }
        lineas.push_back({Titulo::Pares, campo + par.texto, par.veces, 0, Lugar::EnArchivo(par.fila, conversion, par.linea)});
    }
    for (const auto& huerfano : resultado.huerfanos) lineas.push_back({Titulo::Huerfanos, huerfano, 0, 0, {}});
    return lineas;
}

}  // namespace qor
