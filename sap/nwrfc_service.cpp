#include "sap/nwrfc_service.h"

#include <future>
#include <map>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "base/text.h"
#include "sap/nwrfc_library.h"
#include "sap/utf16.h"

namespace qor {

namespace {

using namespace nwrfc;

template <typename Caracter>
void Borrar(std::basic_string<Caracter>& texto) {
    // Volatile, so that no compiler takes the writes for useless.
    volatile Caracter* const bytes = texto.data();
    for (std::size_t i = 0; i < texto.size(); ++i) bytes[i] = 0;
    texto.clear();
}

std::string SinBlancosAlFinal(std::string texto) {
    texto.erase(texto.find_last_not_of(' ') + 1);
    return texto;
}

// A text of a record of the library: up to its zero, or to the end of the field.
template <std::size_t tamano>
std::string TextoDe(const SAP_UC (&campo)[tamano]) {
    const std::u16string_view todo(campo, tamano);
    return SinBlancosAlFinal(DesdeUtf16(todo.substr(0, todo.find(u'\0'))));
}

std::string TextoDe(const RFC_ERROR_INFO& error) {
    const std::string clave = TextoDe(error.key);
    const std::string mensaje = TextoDe(error.message);
    if (!clave.empty() && !mensaje.empty()) return clave + ": " + mensaje;
    if (clave.empty() && mensaje.empty()) return "Error " + std::to_string(error.code) + " of the SAP NetWeaver RFC library";
    return clave + mensaje;
}

[[noreturn]] void Fallar(const std::string& accion, const RFC_ERROR_INFO& error) {
    throw FalloDelServicio(accion + ": " + TextoDe(error));
}

void Exigir(RFC_RC resultado, const std::string& accion, const RFC_ERROR_INFO& error) {
    if (resultado != RFC_OK) Fallar(accion, error);
}

using Plazo = std::chrono::milliseconds;

constexpr Plazo plazoDeCancelar = std::chrono::seconds(5);

std::string SinRespuesta(Plazo limite) {
    const std::string segundos = TextoDeNumero(static_cast<double>(limite.count()) / 1000);
    return "The SAP system has not answered within " + segundos + (segundos == "1" ? " second" : " seconds");
}

// Runs an operation of the library, which knows no limits. One with a limit runs on a thread of its own. False when the limit has
// passed: the operation then goes on unseen, so it owns all that it works with, and it lets go of it when it ends.
bool EjecutarConLimite(Plazo limite, std::function<void()> operacion) {
    if (limite <= Plazo::zero()) {
        operacion();
        return true;
    }
    std::packaged_task<void()> tarea([operacion = std::move(operacion)]() mutable {
        operacion();
        operacion = nullptr;
    });
    auto fin = tarea.get_future();
    std::thread(std::move(tarea)).detach();
    return fin.wait_for(limite) == std::future_status::ready;
}

// The library closes a connection with these.
bool EsConexionPerdida(RFC_RC codigo) {
    switch (codigo) {
        case RFC_COMMUNICATION_FAILURE:
        case RFC_ABAP_RUNTIME_FAILURE:
        case RFC_ABAP_MESSAGE:
        case RFC_CLOSED:
        case RFC_CANCELED:
        case RFC_TIMEOUT:
        case RFC_INVALID_HANDLE:
        case RFC_EXTERNAL_FAILURE: return true;
        default: return false;
    }
}

using ConexionCompartida = std::shared_ptr<nwrfc::Conexion>;

ConexionCompartida Compartir(const std::shared_ptr<const Biblioteca>& biblioteca, RFC_CONNECTION_HANDLE conexion) {
    if (conexion == nullptr) return nullptr;
    return {conexion, [biblioteca](RFC_CONNECTION_HANDLE abierta) {
                RFC_ERROR_INFO error{};
                biblioteca->CloseConnection(abierta, &error);
            }};
}

// What the service and its functions share: the library, and the connection while there is one.
struct Enlace {
    explicit Enlace(const OpcionesNWRFC& opciones)
        : biblioteca(Biblioteca::Cargar(opciones.biblioteca)),
          limiteDeLlamada(opciones.limiteDeLlamada),
          limiteDeConexion(opciones.limiteDeConexion) {}
    Enlace(const Enlace&) = delete;
    Enlace& operator=(const Enlace&) = delete;
    ~Enlace() { Cerrar(); }

    // An operation that was left to itself keeps the connection open until it ends.
    void Cerrar() {
        if (conexion == nullptr) return;
        try {
            EjecutarConLimite(limiteDeConexion, [abierta = std::exchange(conexion, nullptr)]() mutable { abierta.reset(); });
        } catch (const std::system_error&) {
            // No thread to be had: the connection was closed on the way here.
        }
    }

    // Runs an operation on the connection, and answers whether it went well; else `ultimoError` tells why. A connection that is
    // lost over it is given up.
    using Operacion = std::function<RFC_RC(RFC_CONNECTION_HANDLE conexion, RFC_ERROR_INFO* error)>;
    bool Ejecutar(Plazo limite, Operacion operacion) {
        struct Resultado {
            RFC_RC codigo = RFC_OK;
            RFC_ERROR_INFO error{};
        };
        const auto resultado = std::make_shared<Resultado>();
        const bool terminada = EjecutarConLimite(limite, [resultado, operacion = std::move(operacion), abierta = conexion] {
            resultado->codigo = operacion(abierta.get(), &resultado->error);
        });
        if (!terminada) {
            ultimoError = SinRespuesta(limite);
            Cancelar();
            Cerrar();
            return false;
        }
        if (resultado->codigo == RFC_OK) return true;
        ultimoError = TextoDe(resultado->error);
        if (EsConexionPerdida(resultado->codigo)) Cerrar();
        return false;
    }

    std::shared_ptr<const Biblioteca> biblioteca;
    Plazo limiteDeLlamada;
    Plazo limiteDeConexion;
    ConexionCompartida conexion;
    std::string cliente;
    std::string sistema;
    std::string ultimoError;

private:
    // Only what was given up already is cancelled, so it doesn't matter when the operation ends by itself meanwhile.
    void Cancelar() {
        if (biblioteca->Cancel == nullptr) return;
        EjecutarConLimite(plazoDeCancelar, [biblioteca = biblioteca, abierta = conexion] {
            RFC_ERROR_INFO error{};
            biblioteca->Cancel(abierta.get(), &error);
        });
    }
};

class TablaNWRFC : public TablaRFC {
public:
    TablaNWRFC(const Biblioteca& biblioteca, RFC_TABLE_HANDLE tabla, std::string nombre)
        : biblioteca_(biblioteca), tabla_(tabla), nombre_(std::move(nombre)) {}

    void FreeTable() override {
        RFC_ERROR_INFO error{};
        Exigir(biblioteca_.DeleteAllRows(tabla_, &error), "The table " + nombre_ + " can't be emptied", error);
    }

    void Data(const std::vector<std::string>& filas) override {
        FreeTable();
        const std::u16string campo = Campo(1);
        for (const auto& fila : filas) {
            RFC_ERROR_INFO error{};
            auto* const estructura = biblioteca_.AppendNewRow(tabla_, &error);
            if (estructura == nullptr) Fallar("The table " + nombre_ + " takes no row", error);
            const std::u16string texto = AUtf16(fila);
            Exigir(biblioteca_.SetString(estructura, campo.c_str(), texto.c_str(), static_cast<unsigned>(texto.size()), &error),
                   "The table " + nombre_ + " doesn't take a row", error);
        }
    }

    int RowCount() const override {
        RFC_ERROR_INFO error{};
        unsigned filas = 0;
        Exigir(biblioteca_.GetRowCount(tabla_, &filas, &error), "The rows of the table " + nombre_ + " can't be counted", error);
        return static_cast<int>(filas);
    }

    std::string Value(int fila, int columna) const override {
        RFC_ERROR_INFO error{};
        const std::string accion = "Row " + std::to_string(fila) + " of the table " + nombre_ + " can't be read";
        Exigir(biblioteca_.MoveTo(tabla_, static_cast<unsigned>(fila - 1), &error), accion, error);
        auto* const estructura = biblioteca_.GetCurrentRow(tabla_, &error);
        if (estructura == nullptr) Fallar(accion, error);
        const std::u16string campo = Campo(columna);
        std::u16string texto(512, u' ');
        unsigned largo = 0;
        auto resultado = Leer(estructura, campo, texto, largo, error);
        if (resultado == RFC_BUFFER_TOO_SMALL && largo >= texto.size()) {
            texto.resize(std::size_t{largo} + 1);
            resultado = Leer(estructura, campo, texto, largo, error);
        }
        Exigir(resultado, accion, error);
        return SinBlancosAlFinal(DesdeUtf16(std::u16string_view(texto).substr(0, largo)));
    }

private:
    RFC_RC Leer(RFC_STRUCTURE_HANDLE estructura, const std::u16string& campo, std::u16string& texto, unsigned& largo,
                RFC_ERROR_INFO& error) const {
        return biblioteca_.GetString(estructura, campo.c_str(), texto.data(), static_cast<unsigned>(texto.size()), &largo, &error);
    }

    // The name of a column, asked for once.
    const std::u16string& Campo(int columna) const {
        std::u16string& nombre = campos_[columna];
        if (!nombre.empty()) return nombre;
        RFC_ERROR_INFO error{};
        const std::string accion = "The line type of the table " + nombre_ + " is not known";
        auto* const tipo = biblioteca_.DescribeType(tabla_, &error);
        if (tipo == nullptr) Fallar(accion, error);
        RFC_FIELD_DESC campo{};
        Exigir(biblioteca_.GetFieldDescByIndex(tipo, static_cast<unsigned>(columna - 1), &campo, &error), accion, error);
        const std::u16string_view todo(campo.name, std::size(campo.name));
        return nombre = todo.substr(0, todo.find(u'\0'));
    }

    const Biblioteca& biblioteca_;
    RFC_TABLE_HANDLE tabla_;  // belongs to the function
    std::string nombre_;
    mutable std::map<int, std::u16string> campos_;
};

class FuncionNWRFC : public FuncionRFC {
public:
    FuncionNWRFC(Enlace& enlace, std::string_view modulo) : enlace_(enlace), nombre_(modulo) {
        if (enlace_.conexion == nullptr) throw FalloDelServicio("There is no connection to the SAP system");
        RFC_ERROR_INFO error{};
        const auto funcion = enlace_.biblioteca->CreateFunction(PedirDescripcion(), &error);
        if (funcion == nullptr) Fallar("The function module " + nombre_ + " can't be called", error);
        funcion_ = {funcion, [biblioteca = enlace_.biblioteca](RFC_FUNCTION_HANDLE creada) {
                        RFC_ERROR_INFO ignorado{};
                        biblioteca->DestroyFunction(creada, &ignorado);
                    }};
    }

    void Exports(std::string_view nombre, std::string_view valor) override {
        RFC_ERROR_INFO error{};
        const std::u16string texto = AUtf16(valor);
        Exigir(enlace_.biblioteca->SetString(funcion_.get(), AUtf16(nombre).c_str(), texto.c_str(),
                                             static_cast<unsigned>(texto.size()), &error),
               "The parameter " + std::string(nombre) + " of " + nombre_ + " can't be set", error);
    }

    TablaRFC& Tables(std::string_view nombre) override {
        auto& tabla = tablas_[std::string(nombre)];
        if (tabla == nullptr) {
            RFC_ERROR_INFO error{};
            RFC_TABLE_HANDLE asa = nullptr;
            Exigir(enlace_.biblioteca->GetTable(funcion_.get(), AUtf16(nombre).c_str(), &asa, &error),
                   "The table " + std::string(nombre) + " of " + nombre_ + " is not known", error);
            tabla = std::make_unique<TablaNWRFC>(*enlace_.biblioteca, asa, std::string(nombre));
        }
        return *tabla;
    }

    bool Call() override {
        if (enlace_.conexion == nullptr) return false;
        return enlace_.Ejecutar(enlace_.limiteDeLlamada, [biblioteca = enlace_.biblioteca, funcion = funcion_](
                                                             RFC_CONNECTION_HANDLE conexion, RFC_ERROR_INFO* error) {
            return biblioteca->Invoke(conexion, funcion.get(), error);
        });
    }

private:
    // The description comes from the system, and stays the library's.
    RFC_FUNCTION_DESC_HANDLE PedirDescripcion() {
        const auto descripcion = std::make_shared<RFC_FUNCTION_DESC_HANDLE>(nullptr);
        const bool bien =
            enlace_.Ejecutar(enlace_.limiteDeConexion, [biblioteca = enlace_.biblioteca, descripcion, nombre = AUtf16(nombre_)](
                                                           RFC_CONNECTION_HANDLE conexion, RFC_ERROR_INFO* error) {
                *descripcion = biblioteca->GetFunctionDesc(conexion, nombre.c_str(), error);
                return *descripcion == nullptr && error->code == RFC_OK ? RFC_INVALID_PARAMETER : error->code;
            });
        if (!bien) throw FalloDelServicio("The function module " + nombre_ + " can't be called: " + enlace_.ultimoError);
        return *descripcion;
    }

    Enlace& enlace_;
    std::string nombre_;
    std::shared_ptr<Contenedor> funcion_;  // shared with a call that was left to itself
    std::map<std::string, std::unique_ptr<TablaNWRFC>> tablas_;
};

// The password without a copy on the way; the others are no secrets.
std::u16string ClaveEnUtf16(const std::string& clave) {
    std::u16string resultado;
    resultado.reserve(clave.size());
    for (const char c : clave) resultado += AUtf16(std::string_view(&c, 1));
    return resultado;
}

// The parameters of a logon in the library's form, and the connection that it opens. The password is overwritten behind it.
class Apertura {
public:
    explicit Apertura(ParametrosDeLogon& parametros) {
        if (!parametros.servidor.empty()) {
            Agregar(u"ASHOST", parametros.servidor);
            Agregar(u"SYSNR", parametros.numeroDeSistema);
        } else {
            Agregar(u"MSHOST", parametros.servidorDeMensajes);
            Agregar(u"R3NAME", parametros.sistema);
            Agregar(u"GROUP", parametros.grupo);
        }
        Agregar(u"CLIENT", parametros.cliente);
        Agregar(u"USER", parametros.usuario);
        Agregar(u"LANG", parametros.idioma);
        Agregar(u"SAPROUTER", parametros.ruta);
        clave_ = ClaveEnUtf16(parametros.clave);
        parametros.BorrarClave();
    }
    Apertura(const Apertura&) = delete;
    Apertura& operator=(const Apertura&) = delete;
    ~Apertura() { Borrar(clave_); }

    void Abrir(const std::shared_ptr<const Biblioteca>& biblioteca) {
        std::vector<RFC_CONNECTION_PARAMETER> lista;
        lista.reserve(pares_.size() + 1);
        for (const auto& [nombre, valor] : pares_) lista.push_back({nombre, valor.c_str()});
        lista.push_back({u"PASSWD", clave_.c_str()});
        conexion = Compartir(biblioteca, biblioteca->OpenConnection(lista.data(), static_cast<unsigned>(lista.size()), &error));
        Borrar(clave_);
    }

    ConexionCompartida conexion;
    RFC_ERROR_INFO error{};

private:
    void Agregar(const char16_t* nombre, const std::string& valor) {
        if (!valor.empty()) pares_.emplace_back(nombre, AUtf16(valor));
    }

    std::vector<std::pair<const char16_t*, std::u16string>> pares_;
    std::u16string clave_;
};

class ConexionNWRFC : public ConexionRFC {
public:
    ConexionNWRFC(Enlace& enlace, DialogoDeLogon dialogo) : enlace_(enlace), dialogo_(std::move(dialogo)) {}

    bool Logon(bool silencioso) override {
        if (silencioso) return Responde();
        ParametrosDeLogon parametros;
        if (!dialogo_(parametros)) return false;
        enlace_.Cerrar();
        enlace_.ultimoError.clear();
        Entrar(parametros);
        LeerAtributos();
        return true;
    }

    void Logoff() override { enlace_.Cerrar(); }
    bool Abierta() const override { return enlace_.conexion != nullptr; }
    std::string Client() const override { return enlace_.cliente; }
    std::string System() const override { return enlace_.sistema; }

private:
    bool Responde() {
        if (enlace_.conexion == nullptr) return false;
        return enlace_.Ejecutar(enlace_.limiteDeConexion,
                                [biblioteca = enlace_.biblioteca](RFC_CONNECTION_HANDLE conexion, RFC_ERROR_INFO* error) {
                                    return biblioteca->Ping(conexion, error);
                                });
    }

    // A connection that opens behind its limit is closed again.
    void Entrar(ParametrosDeLogon& parametros) {
        const auto apertura = std::make_shared<Apertura>(parametros);
        const bool terminada = EjecutarConLimite(enlace_.limiteDeConexion,
                                                 [apertura, biblioteca = enlace_.biblioteca] { apertura->Abrir(biblioteca); });
        if (!terminada) throw FalloDelServicio(SinRespuesta(enlace_.limiteDeConexion));
        if (apertura->conexion == nullptr) throw FalloDelServicio(TextoDe(apertura->error));
        enlace_.conexion = apertura->conexion;
    }

    void LeerAtributos() {
        RFC_ERROR_INFO error{};
        RFC_ATTRIBUTES atributos{};
        Exigir(enlace_.biblioteca->GetConnectionAttributes(enlace_.conexion.get(), &atributos, &error),
               "The connection can't be described", error);
        enlace_.cliente = TextoDe(atributos.client);
        enlace_.sistema = TextoDe(atributos.sysId);
    }

    Enlace& enlace_;
    DialogoDeLogon dialogo_;
};

class ServicioNWRFC : public ServicioRFC {
public:
    ServicioNWRFC(const OpcionesNWRFC& opciones, DialogoDeLogon dialogo)
        : enlace_(opciones), conexion_(enlace_, std::move(dialogo)) {}

    ConexionRFC& Connection() override { return conexion_; }
    std::unique_ptr<FuncionRFC> Add(std::string_view modulo) override { return std::make_unique<FuncionNWRFC>(enlace_, modulo); }
    std::string UltimoError() const override { return enlace_.ultimoError; }

private:
    Enlace enlace_;
    ConexionNWRFC conexion_;
};

}  // namespace

void ParametrosDeLogon::BorrarClave() { Borrar(clave); }

void ParametrosDeLogon::Tomar(ParametrosDeLogon& otros) {
    for (const auto campo :
         {&ParametrosDeLogon::servidor, &ParametrosDeLogon::numeroDeSistema, &ParametrosDeLogon::servidorDeMensajes,
          &ParametrosDeLogon::sistema, &ParametrosDeLogon::grupo, &ParametrosDeLogon::cliente, &ParametrosDeLogon::usuario,
          &ParametrosDeLogon::idioma, &ParametrosDeLogon::ruta}) {
        this->*campo = std::move(otros.*campo);
    }
    BorrarClave();
    clave = otros.clave;
    otros.BorrarClave();
}

bool TieneClave(std::string_view ruta) {
    for (; !ruta.empty(); ruta = DespuesDe(ruta, '/')) {
        const auto segmento = Recortar(AntesDe(ruta, '/'));
        if (IgualesSinCaja(segmento, "W") || IgualesSinCaja(segmento, "P")) return true;
    }
    return false;
}

std::unique_ptr<ServicioRFC> CrearServicioNWRFC(const OpcionesNWRFC& opciones, DialogoDeLogon dialogo) {
    return std::make_unique<ServicioNWRFC>(opciones, std::move(dialogo));
}

}  // namespace qor
