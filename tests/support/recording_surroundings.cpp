#include "tests/support/recording_surroundings.h"

#include "abap/values/conversion.h"

namespace qor::abap {

namespace {

std::string Texto(const ValorDeBase& valor) {
    if (const auto* texto = std::get_if<std::string>(&valor)) return "'" + *texto + "'";
    if (const auto* entero = std::get_if<std::int64_t>(&valor)) return std::to_string(*entero);
    if (const auto* flotante = std::get_if<double>(&valor)) return std::to_string(*flotante);
    return "NULL";
}

template <class Elementos, class Funcion>
std::string Unir(const Elementos& elementos, const char* entre, Funcion funcion) {
    std::string texto;
    for (const auto& elemento : elementos) texto += (texto.empty() ? "" : entre) + std::string(funcion(elemento));
    return texto;
}

std::string Texto(const CondicionDeBase& c) {
    using Clase = CondicionDeBase::Clase;
    const auto partes = [&c](const char* entre) {
        return "(" + Unir(c.partes, entre, [](const auto& p) { return Texto(p); }) + ")";
    };
    const auto valores = [&c](const char* entre) { return Unir(c.valores, entre, [](const auto& v) { return Texto(v); }); };
    switch (c.clase) {
        case Clase::Y: return partes(" AND ");
        case Clase::O: return partes(" OR ");
        case Clase::No: return "NOT " + partes("");
        case Clase::Compara: return c.columna + " " + c.operador + " " + (c.otraColumna.empty() ? valores("") : c.otraColumna);
        case Clase::Entre: return c.columna + " BETWEEN " + valores(" AND ");
        case Clase::En: return c.columna + " IN (" + valores(", ") + ")";
        case Clase::Como: return c.columna + " LIKE " + valores("") + (c.escape != 0 ? std::string(" ESCAPE ") + c.escape : "");
        case Clase::EsNulo: break;
    }
    return c.columna + " IS NULL";
}

std::string ConDonde(std::string texto, const CondicionDeBase& donde) {
    const bool todas = donde.clase == CondicionDeBase::Clase::Y && donde.partes.empty();
    return todas ? texto : texto + " WHERE " + Texto(donde);
}

std::string TextoDeFila(std::span<const ValorDeBase> fila) {
    return Unir(fila, ", ", [](const auto& valor) { return Texto(valor); });
}

class Filas : public FilasDeBase {
public:
    explicit Filas(FilasDePrueba filas) : filas_(std::move(filas)) {}
    bool Siguiente(std::vector<ValorDeBase>& fila) override {
        if (lugar_ == filas_.size()) return false;
        fila = filas_[lugar_++];
        return true;
    }

private:
    FilasDePrueba filas_;
    std::size_t lugar_ = 0;
};

// The value, and the one that comes behind the call.
std::string Anotar(const ParametroDeFuncion& parametro, const char* nuevo) {
    std::string texto = parametro.nombre + "=" + (parametro.campo.datos == nullptr ? "-" : TextoPlano(parametro.campo));
    if (nuevo != nullptr) PonerTexto(nuevo, parametro.campo);
    return texto;
}

}  // namespace

DiccionarioDePrueba::DiccionarioDePrueba() {
    Estructura zt;
    zt.nombre = "ZT";
    zt.Agregar("MANDT", {Tipo::C, 3}, true);
    zt.Agregar("PROGID", {Tipo::N, 4}, true);
    zt.Agregar("BATCH", {Tipo::N, 4}, true);
    zt.Agregar("FLAG", {Tipo::C, 1});
    zt.Agregar("AMOUNT", {Tipo::P, 4, 2});
    zt.Agregar("LENGTH", {Tipo::I, 4});
    zt.Agregar("LINE", {Tipo::C, 8});
    zt.Cerrar();
    estructuras_.emplace("ZT", zt);
    Estructura fila;
    fila.nombre = "BDCDATA";
    fila.Agregar("FNAM", {Tipo::C, 20});
    fila.Agregar("FVAL", {Tipo::C, 20});
    fila.Cerrar();
    estructuras_.emplace("BDCDATA", fila);
    Estructura mensaje;
    mensaje.nombre = "BDCMSGCOLL";
    for (const char* nombre : {"TCODE", "DYNAME"}) mensaje.Agregar(nombre, {Tipo::C, 20});
    mensaje.Agregar("DYNUMB", {Tipo::C, 4});
    for (const char* nombre : {"MSGTYP", "MSGSPRA"}) mensaje.Agregar(nombre, {Tipo::C, 1});
    mensaje.Agregar("MSGID", {Tipo::C, 20});
    mensaje.Agregar("MSGNR", {Tipo::N, 3});
    for (const char* nombre : {"MSGV1", "MSGV2", "MSGV3", "MSGV4", "FLDNAME"}) mensaje.Agregar(nombre, {Tipo::C, 20});
    mensaje.Cerrar();
    estructuras_.emplace("BDCMSGCOLL", mensaje);
}

const Estructura& DiccionarioDePrueba::BuscarEstructura(const NombreUsado& nombre) {
    const auto lugar = estructuras_.find(nombre.estructura);
    if (lugar != estructuras_.end()) return lugar->second;
    Estructura& nueva = estructuras_[std::string(nombre.estructura)];
    nueva.nombre = nombre.estructura;
    for (const auto& componente : nombre.componentes) nueva.Agregar(componente, {Tipo::C, 255});
    nueva.Cerrar();
    return nueva;
}

TipoDeCampo DiccionarioDePrueba::BuscarCampo(std::string_view estructura, std::string_view componente) {
    const auto* suyo = BuscarEstructura({estructura, {}}).Buscar(componente);
    return suyo == nullptr ? TipoDeCampo{Tipo::C, 255} : suyo->tipo;
}

std::unique_ptr<FilasDeBase> BaseDePrueba::Responder() {
    FilasDePrueba filas;
    if (!respuestas.empty()) {
        filas = std::move(respuestas.front());
        respuestas.pop_front();
    }
    return std::make_unique<Filas>(std::move(filas));
}

std::int64_t BaseDePrueba::Cambios() {
    if (cambios.empty()) return 1;
    const std::int64_t cuantos = cambios.front();
    cambios.pop_front();
    return cuantos;
}

std::unique_ptr<FilasDeBase> BaseDePrueba::Seleccionar(const ConsultaDeBase& consulta) {
    std::string texto = consulta.distinta ? "SELECT DISTINCT " : "SELECT ";
    texto += Unir(consulta.columnas, " ", [](const ColumnaPedida& c) {
        return c.funcion.empty() ? c.columna : c.funcion + "(" + (c.distinta ? "DISTINCT " : "") + c.columna + ")";
    });
    texto = ConDonde(texto + " FROM " + consulta.tabla, consulta.donde);
    if (!consulta.grupo.empty()) texto += " GROUP " + Unir(consulta.grupo, " ", [](const std::string& c) { return c; });
    for (const auto& orden : consulta.orden) texto += " ORDER " + orden.columna + (orden.descendente ? " DOWN" : "");
    if (consulta.limite > 0) texto += " LIMIT " + std::to_string(consulta.limite);
    pedidos.push_back(texto + (consulta.delCliente ? "" : " ALL CLIENTS"));
    return Responder();
}

bool BaseDePrueba::Insertar(const Estructura& tabla, std::span<const ValorDeBase> fila) {
    pedidos.push_back("INSERT " + tabla.nombre + ": " + TextoDeFila(fila));
    return Cambios() > 0;
}

std::int64_t BaseDePrueba::Actualizar(const std::string& tabla, std::span<const AsignacionDeBase> asignaciones,
                                      const CondicionDeBase& donde) {
    const auto cambio = [](const AsignacionDeBase& a) { return a.columna + " " + a.operacion + " " + Texto(a.valor); };
    pedidos.push_back(ConDonde("UPDATE " + tabla + " SET " + Unir(asignaciones, ", ", cambio), donde));
    return Cambios();
}

std::int64_t BaseDePrueba::ActualizarFila(const Estructura& tabla, std::span<const ValorDeBase> fila) {
    pedidos.push_back("UPDATE " + tabla.nombre + ": " + TextoDeFila(fila));
    return Cambios();
}

std::int64_t BaseDePrueba::Borrar(const std::string& tabla, const CondicionDeBase& donde) {
    pedidos.push_back(ConDonde("DELETE " + tabla, donde));
    return Cambios();
}

std::int64_t BaseDePrueba::BorrarFila(const Estructura& tabla, std::span<const ValorDeBase> fila) {
    pedidos.push_back("DELETE " + tabla.nombre + ": " + TextoDeFila(fila));
    return Cambios();
}

std::unique_ptr<FilasDeBase> BaseDePrueba::SeleccionarNativo(const std::string& texto, std::span<const ValorDeBase> valores) {
    std::string pedido;
    for (const char c : texto) {
        const bool blanco = c == ' ' || c == '\n' || c == '\r';
        if (!blanco || (!pedido.empty() && pedido.back() != ' ')) pedido += blanco ? ' ' : c;
    }
    pedidos.push_back(pedido + "| " + TextoDeFila(valores));
    return Responder();
}

bool ArchivosDePrueba::Abrir(std::string_view nombre, Modo modo, bool texto) {
    constexpr const char* modos[] = {"INPUT", "OUTPUT", "APPENDING"};
    pedidos.push_back("OPEN " + std::string(nombre) + " " + modos[static_cast<int>(modo)] + (texto ? " TEXT" : " BINARY"));
    return nombre != "missing";
}

bool ArchivosDePrueba::Leer(std::string_view, std::string& linea, std::size_t) {
    if (lineas.empty()) return false;
    linea = lineas.front();
    lineas.pop_front();
    return true;
}

void ArchivosDePrueba::Escribir(std::string_view nombre, std::string_view linea) {
    pedidos.push_back("WRITE " + std::string(nombre) + " <" + std::string(linea) + ">");
}

bool ArchivosDePrueba::Borrar(std::string_view nombre) {
    pedidos.push_back("DELETE " + std::string(nombre));
    return nombre != "missing";
}

std::string FuncionesDePrueba::Llamar(const LlamadaAFuncion& llamada) {
    std::string texto = llamada.nombre;
    for (const auto& parametro : llamada.exporta) texto += " >" + Anotar(parametro, nullptr);
    for (const auto& parametro : llamada.importa) texto += " <" + Anotar(parametro, "imported");
    for (const auto& parametro : llamada.cambia) texto += " ~" + Anotar(parametro, "changed");
    for (const auto& parametro : llamada.tablas) {
        texto += " #" + Anotar(parametro, nullptr) + "[" + std::to_string(parametro.tabla->Filas()) + " " +
                 (parametro.estructura == nullptr ? "-" : parametro.estructura->componentes.front().nombre) + "]";
    }
    pedidos.push_back(std::move(texto));
    return excepcion;
}

ResultadoDeTransaccion TransaccionesDePrueba::Llamar(std::string_view transaccion, const TablaInterna& filas, char modo,
                                                     char actualizacion) {
    pedidos.push_back(std::string(transaccion) + " " + std::to_string(filas.Filas()) + " " + modo + actualizacion);
    return resultado;
}

}  // namespace qor::abap
