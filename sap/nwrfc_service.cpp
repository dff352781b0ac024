#include "sap/nwrfc_service.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

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

// Cancels what runs on the connection when it takes too long. The library allows that from another thread only.
class LimiteDeTiempo {
public:
    LimiteDeTiempo(const Biblioteca& biblioteca, RFC_CONNECTION_HANDLE conexion, int segundos) {
        if (segundos <= 0 || biblioteca.Cancel == nullptr) return;
        hilo_ = std::thread([this, cancelar = biblioteca.Cancel, conexion, segundos] {
            std::unique_lock cerrojo(mutex_);
            if (aviso_.wait_for(cerrojo, std::chrono::seconds(segundos), [this] { return terminado_; })) return;
            RFC_ERROR_INFO error{};
            cancelar(conexion, &error);
        });
    }
    ~LimiteDeTiempo() {
        if (!hilo_.joinable()) return;
        {
            const std::lock_guard cerrojo(mutex_);
            terminado_ = true;
        }
        aviso_.notify_one();
        hilo_.join();
    }
    LimiteDeTiempo(const LimiteDeTiempo&) = delete;
    LimiteDeTiempo& operator=(const LimiteDeTiempo&) = delete;

private:
    std::mutex mutex_;
    std::condition_variable aviso_;
    bool terminado_ = false;
    std::thread hilo_;
};

// What the service and its functions share: the library, and the connection while there is one.
struct Enlace {
    explicit Enlace(const OpcionesNWRFC& opciones)
        : biblioteca(Biblioteca::Cargar(opciones.biblioteca)), segundosDeLlamada(opciones.segundosDeLlamada) {}
    Enlace(const Enlace&) = delete;
    Enlace& operator=(const Enlace&) = delete;
    ~Enlace() { Cerrar(); }

    void Cerrar() {
        if (conexion == nullptr) return;
        RFC_ERROR_INFO error{};
        biblioteca->CloseConnection(std::exchange(conexion, nullptr), &error);
    }

    // The outcome of a call that went over the wire. A connection that broke is given up.
    bool Anotar(RFC_RC resultado, const RFC_ERROR_INFO& error) {
        if (resultado == RFC_OK) return true;
        ultimoError = TextoDe(error);
        if (resultado == RFC_CANCELED) {
            ultimoError =
                "The call took longer than " + std::to_string(segundosDeLlamada) + " seconds and was stopped (" + ultimoError + ")";
        }
        const bool rota = resultado == RFC_COMMUNICATION_FAILURE || resultado == RFC_ABAP_RUNTIME_FAILURE ||
                          resultado == RFC_CLOSED || resultado == RFC_CANCELED || resultado == RFC_TIMEOUT ||
                          resultado == RFC_INVALID_HANDLE;
        if (rota) Cerrar();
        return false;
    }

    std::shared_ptr<const Biblioteca> biblioteca;
    int segundosDeLlamada;
    RFC_CONNECTION_HANDLE conexion = nullptr;
    std::string cliente;
    std::string sistema;
    std::string ultimoError;
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
        auto* const descripcion = enlace_.biblioteca->GetFunctionDesc(enlace_.conexion, AUtf16(nombre_).c_str(), &error);
        if (descripcion == nullptr) {
            // The description comes from the system, so the connection may have broken over it.
            enlace_.Anotar(error.code, error);
            Fallar("The function module " + nombre_ + " can't be called", error);
        }
        funcion_ = enlace_.biblioteca->CreateFunction(descripcion, &error);
        if (funcion_ == nullptr) Fallar("The function module " + nombre_ + " can't be called", error);
    }
    FuncionNWRFC(const FuncionNWRFC&) = delete;
    FuncionNWRFC& operator=(const FuncionNWRFC&) = delete;
    ~FuncionNWRFC() override {
        RFC_ERROR_INFO error{};
        enlace_.biblioteca->DestroyFunction(funcion_, &error);
    }

    void Exports(std::string_view nombre, std::string_view valor) override {
        RFC_ERROR_INFO error{};
        const std::u16string texto = AUtf16(valor);
        Exigir(enlace_.biblioteca->SetString(funcion_, AUtf16(nombre).c_str(), texto.c_str(), static_cast<unsigned>(texto.size()),
                                             &error),
               "The parameter " + std::string(nombre) + " of " + nombre_ + " can't be set", error);
    }

    TablaRFC& Tables(std::string_view nombre) override {
        auto& tabla = tablas_[std::string(nombre)];
        if (tabla == nullptr) {
            RFC_ERROR_INFO error{};
            RFC_TABLE_HANDLE asa = nullptr;
            Exigir(enlace_.biblioteca->GetTable(funcion_, AUtf16(nombre).c_str(), &asa, &error),
                   "The table " + std::string(nombre) + " of " + nombre_ + " is not known", error);
            tabla = std::make_unique<TablaNWRFC>(*enlace_.biblioteca, asa, std::string(nombre));
        }
        return *tabla;
    }

    bool Call() override {
        if (enlace_.conexion == nullptr) return false;
        RFC_ERROR_INFO error{};
        RFC_RC resultado = RFC_OK;
        {
            const LimiteDeTiempo limite(*enlace_.biblioteca, enlace_.conexion, enlace_.segundosDeLlamada);
            resultado = enlace_.biblioteca->Invoke(enlace_.conexion, funcion_, &error);
        }
        return enlace_.Anotar(resultado, error);
    }

private:
    Enlace& enlace_;
    std::string nombre_;
    RFC_FUNCTION_HANDLE funcion_ = nullptr;
    std::map<std::string, std::unique_ptr<TablaNWRFC>> tablas_;
};

// The password without a copy on the way; the others are no secrets.
std::u16string ClaveEnUtf16(const std::string& clave) {
    std::u16string resultado;
    resultado.reserve(clave.size());
    for (const char c : clave) resultado += AUtf16(std::string_view(&c, 1));
    return resultado;
}

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
    std::string Client() const override { return enlace_.cliente; }
    std::string System() const override { return enlace_.sistema; }

private:
    bool Responde() {
        if (enlace_.conexion == nullptr) return false;
        RFC_ERROR_INFO error{};
        RFC_RC resultado = RFC_OK;
        {
            const LimiteDeTiempo limite(*enlace_.biblioteca, enlace_.conexion, enlace_.segundosDeLlamada);
            resultado = enlace_.biblioteca->Ping(enlace_.conexion, &error);
        }
        return enlace_.Anotar(resultado, error);
    }

    void Entrar(ParametrosDeLogon& parametros) {
        std::vector<std::pair<std::u16string, std::u16string>> pares;
        const auto agregar = [&](const char16_t* nombre, const std::string& valor) {
            if (!valor.empty()) pares.emplace_back(nombre, AUtf16(valor));
        };
        if (!parametros.servidor.empty()) {
            agregar(u"ASHOST", parametros.servidor);
            agregar(u"SYSNR", parametros.numeroDeSistema);
        } else {
            agregar(u"MSHOST", parametros.servidorDeMensajes);
            agregar(u"R3NAME", parametros.sistema);
            agregar(u"GROUP", parametros.grupo);
        }
        agregar(u"CLIENT", parametros.cliente);
        agregar(u"USER", parametros.usuario);
        agregar(u"LANG", parametros.idioma);
        agregar(u"SAPROUTER", parametros.ruta);
        std::u16string clave = ClaveEnUtf16(parametros.clave);
        parametros.BorrarClave();

        std::vector<RFC_CONNECTION_PARAMETER> lista;
        lista.reserve(pares.size() + 1);
        for (const auto& [nombre, valor] : pares) lista.push_back({nombre.c_str(), valor.c_str()});
        lista.push_back({u"PASSWD", clave.c_str()});
        RFC_ERROR_INFO error{};
        enlace_.conexion = enlace_.biblioteca->OpenConnection(lista.data(), static_cast<unsigned>(lista.size()), &error);
        Borrar(clave);
        if (enlace_.conexion == nullptr) throw FalloDelServicio(TextoDe(error));
    }

    void LeerAtributos() {
        RFC_ERROR_INFO error{};
        RFC_ATTRIBUTES atributos{};
        Exigir(enlace_.biblioteca->GetConnectionAttributes(enlace_.conexion, &atributos, &error),
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

std::unique_ptr<ServicioRFC> CrearServicioNWRFC(const OpcionesNWRFC& opciones, DialogoDeLogon dialogo) {
    return std::make_unique<ServicioNWRFC>(opciones, std::move(dialogo));
}

}  // namespace qor
