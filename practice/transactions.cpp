#include "practice/transactions.h"

#include <algorithm>
#include <limits>

#include "practice/messages.h"

namespace qor {

namespace {

constexpr std::uint32_t sinLimite = std::numeric_limits<std::uint32_t>::max();

// A report that takes its field names from its data has more names than are worth keeping.
constexpr std::size_t nombresQueSeRecuerdan = 100000;

// How many characters a screen field of a type takes.
std::uint32_t LargoEnPantalla(const abap::TipoDeCampo& tipo) {
    switch (tipo.tipo) {
        case abap::Tipo::C:
        case abap::Tipo::N: return tipo.largo;
        case abap::Tipo::D: return 10;
        case abap::Tipo::T: return 8;
        case abap::Tipo::P: return 2 * tipo.largo + 2;
        default: return sinLimite;
    }
}

bool EstaEnTodaPantalla(std::string_view campo) { return campo == "BDC_OKCODE" || campo == "BDC_CURSOR" || campo == "BDC_SUBSCR"; }

}  // namespace

// What is known of a field, by the name that was sent.
struct ProbadorDeTransacciones::Nombre {
    std::uint32_t largo = sinLimite;
    const ListaDeValores* lista = nullptr;
    bool enTodaPantalla = false;
    std::string sinFila;
};

// What a row of the last transaction of this code was. Records send much the same rows one after the other, so that most of what
// has to be looked up was looked up for the row at the same place of the record before.
struct ProbadorDeTransacciones::Recuerdo {
    std::string programa;
    std::string dynpro;
    bool esPantalla = false;
    bool conocido = false;
    const TransaccionGrabada::Campos* pantalla = nullptr;
    std::string campo;
    const Nombre* nombre = nullptr;
};

struct ProbadorDeTransacciones::Plan {
    std::string codigo;
    const TransaccionGrabada* grabada = nullptr;
    std::vector<Recuerdo> recuerdos;
};

ProbadorDeTransacciones::ProbadorDeTransacciones(const Grabaciones& grabaciones, ListasDeValores& listas, TipoDePantalla tipo)
    : grabaciones_(grabaciones), listas_(listas), tipo_(std::move(tipo)) {}

ProbadorDeTransacciones::~ProbadorDeTransacciones() = default;

ProbadorDeTransacciones::Plan& ProbadorDeTransacciones::PlanDe(std::string_view transaccion) {
    if (ultimo_ && ultimo_->codigo == transaccion) return *ultimo_;
    auto lugar = planes_.find(transaccion);
    if (lugar == planes_.end()) {
        auto plan = std::make_unique<Plan>();
        plan->codigo = transaccion;
        plan->grabada = grabaciones_.Buscar(transaccion);
        lugar = planes_.emplace(plan->codigo, std::move(plan)).first;
    }
    ultimo_ = lugar->second.get();
    return *ultimo_;
}

const ProbadorDeTransacciones::Nombre& ProbadorDeTransacciones::NombreDe(std::string_view campo) {
    auto lugar = nombres_.find(campo);
    if (lugar == nombres_.end()) {
        auto nombre = std::make_unique<Nombre>();
        nombre->sinFila = SinNumeroDeFila(campo);
        nombre->enTodaPantalla = EstaEnTodaPantalla(nombre->sinFila);
        nombre->lista = listas_.Buscar(nombre->sinFila);
        if (const auto tipo = tipo_ ? tipo_(nombre->sinFila) : std::nullopt) nombre->largo = LargoEnPantalla(*tipo);
        lugar = nombres_.emplace(std::string(campo), std::move(nombre)).first;
    }
    return *lugar->second;
}

const ResultadoDePrueba& ProbadorDeTransacciones::Probar(std::string_view transaccion, std::span<const FilaDeBDC> filas,
                                                         const FalloPedido* pedido) {
    if (nombres_.size() > nombresQueSeRecuerdan) {
        planes_.clear();
        nombres_.clear();
        ultimo_ = nullptr;
    }
    auto& plan = PlanDe(transaccion);
    resultado_.lugar = {};
    pantalla_ = nullptr;
    if (filas.empty()) {
        Fallar(mensajes::sinPantalla, {}, {});
        return resultado_;
    }
    if (!filas[0].abre) {
        Fallar(mensajes::sinPantalla, {filas[0].programa, filas[0].dynpro}, {});
        return resultado_;
    }
    if (plan.recuerdos.size() < filas.size()) plan.recuerdos.resize(filas.size());
    std::size_t ultima = filas.size();
    if (pedido) {
        do --ultima;
        while (!filas[ultima].abre);
    }
    for (std::size_t i = 0; i < filas.size(); ++i) {
        if (!ProbarFila(plan, i, filas[i])) return resultado_;
        if (i == ultima) {
            FallarComoSePidio(*pedido);
            return resultado_;
        }
    }
    resultado_.fallo = false;
    resultado_.tipo = 'S';
    resultado_.id = mensajes::clase;
    resultado_.numero = mensajes::hecho;
    for (auto& variable : resultado_.variables) variable.clear();
    resultado_.texto = mensajes::textoHecho;
    return resultado_;
}

bool ProbadorDeTransacciones::ProbarFila(Plan& plan, std::size_t i, const FilaDeBDC& fila) {
    if (fila.abre) resultado_.lugar = {fila.programa, fila.dynpro, {}, {}};
    if (fila.abre == !fila.campo.empty()) {
        const auto& lugar = resultado_.lugar;
        return Fallar(mensajes::sinPantalla, {lugar.programa, lugar.dynpro}, lugar);
    }
    auto& recuerdo = plan.recuerdos[i];
    return fila.abre ? ProbarPantalla(plan, recuerdo, fila) : ProbarCampo(plan, recuerdo, fila);
}

bool ProbadorDeTransacciones::ProbarPantalla(Plan& plan, Recuerdo& recuerdo, const FilaDeBDC& fila) {
    if (!plan.grabada) return true;
    if (!recuerdo.conocido || !recuerdo.esPantalla || recuerdo.dynpro != fila.dynpro || recuerdo.programa != fila.programa) {
        recuerdo.esPantalla = true;
        recuerdo.programa = fila.programa;
        recuerdo.dynpro = fila.dynpro;
        recuerdo.pantalla = plan.grabada->Buscar(fila.programa, fila.dynpro);
        recuerdo.conocido = true;
    }
    pantalla_ = recuerdo.pantalla;
    if (pantalla_) return true;
    return Fallar(mensajes::sinPantalla, {fila.programa, fila.dynpro}, resultado_.lugar);
}

bool ProbadorDeTransacciones::ProbarCampo(Plan& plan, Recuerdo& recuerdo, const FilaDeBDC& fila) {
    const auto& pantalla = resultado_.lugar;
    const LugarDeFallo lugar{pantalla.programa, pantalla.dynpro, fila.campo, fila.valor};
    if (!recuerdo.conocido || recuerdo.esPantalla || recuerdo.pantalla != pantalla_ || recuerdo.campo != fila.campo) {
        recuerdo.conocido = false;
        const auto& nuevo = NombreDe(fila.campo);
        if (plan.grabada && !nuevo.enTodaPantalla && !pantalla_->contains(nuevo.sinFila)) {
            return Fallar(mensajes::sinCampo, {fila.campo, pantalla.programa, pantalla.dynpro}, lugar);
        }
        recuerdo.esPantalla = false;
        recuerdo.pantalla = pantalla_;
        recuerdo.campo = fila.campo;
        recuerdo.nombre = &nuevo;
        recuerdo.conocido = true;
    }
    const auto& nombre = *recuerdo.nombre;
    if (fila.valor.empty() || fila.valor == "/") return true;
    if (fila.valor.size() > nombre.largo) return Fallar(mensajes::malFormado, {fila.campo}, lugar);
    if (nombre.lista && !nombre.lista->Tiene(fila.valor)) return Fallar(mensajes::sinEntrada, {fila.valor}, lugar);
    return true;
}

bool ProbadorDeTransacciones::Fallar(std::string_view numero, std::initializer_list<std::string_view> variables,
                                     const LugarDeFallo& lugar) {
    resultado_.fallo = true;
    resultado_.tipo = 'E';
    resultado_.id = mensajes::clase;
    resultado_.numero = numero;
    std::size_t i = 0;
    for (const auto variable : variables) resultado_.variables[i++] = SinBlancosDetras(variable);
    for (; i < 4; ++i) resultado_.variables[i].clear();
    resultado_.texto = TextoDeMensaje(resultado_.id, numero, resultado_.variables);
    resultado_.lugar = lugar;
    return false;
}

bool ProbadorDeTransacciones::FallarComoSePidio(const FalloPedido& pedido) {
    const std::string_view texto = pedido.texto;
    const auto trozo = [texto](std::size_t n) {
        return texto.substr(std::min(texto.size(), n * largoDeVariable), largoDeVariable);
    };
    Fallar(mensajes::numeroPedido, {trozo(0), trozo(1), trozo(2), trozo(3)}, resultado_.lugar);
    resultado_.id = mensajes::clasePedida;
    resultado_.texto = TextoDeMensaje(resultado_.id, resultado_.numero, resultado_.variables);
    return false;
}

TransaccionesDePractica::TransaccionesDePractica(ProbadorDeTransacciones& probador, const FallosPedidos& fallos,
                                                 OyenteDePractica& oyente, std::function<void()> confirmar)
    : probador_(probador), fallos_(fallos), oyente_(oyente), confirmar_(std::move(confirmar)) {}

abap::ResultadoDeTransaccion TransaccionesDePractica::Llamar(std::string_view transaccion, const abap::TablaInterna& tabla,
                                                             char modo, char actualizacion) {
    confirmar_();
    const auto codigo = SinBlancosDetras(transaccion);
    const auto filas = lector_.Leer(tabla);
    const auto& resultado = probador_.Probar(codigo, filas, fallos_.Pedido());
    const auto dicho = resultado.Mensaje();
    oyente_.Transaccion({codigo, modo, actualizacion, filas, resultado.Subrc(), {&dicho, 1}, resultado.lugar});

    abap::ResultadoDeTransaccion respuesta;
    respuesta.subrc = resultado.Subrc();
    auto& mensaje = respuesta.mensajes.emplace_back();
    mensaje.programa = resultado.lugar.programa;
    mensaje.dynpro = resultado.lugar.dynpro;
    mensaje.campo = resultado.lugar.campo;
    mensaje.tipo = resultado.tipo;
    mensaje.id = resultado.id;
    mensaje.numero = resultado.numero;
    std::copy(std::begin(resultado.variables), std::end(resultado.variables), std::begin(mensaje.variables));
    return respuesta;
}

}  // namespace qor
