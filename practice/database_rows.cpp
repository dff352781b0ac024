#include <sqlite3.h>

#include <algorithm>

#include "abap/short_dump.h"
#include "base/code_page.h"
#include "base/text.h"
#include "practice/database.h"
#include "practice/database_entry.h"
#include "practice/query_text.h"

namespace qor {

namespace {

using abap::ValorDeBase;

constexpr const char* volcadoDeOpenSql = "DBIF_RSQL_SQL_ERROR";
constexpr const char* volcadoNativo = "DBIF_DSQL2_SQL_ERROR";
constexpr std::size_t muchasSentencias = 500;

// What the database says to a statement of a report ends the report.
[[noreturn]] void Volcar(const char* nombre, const FalloDeBase& fallo) {
    throw abap::Volcado(nombre, DesdeUtf8ConFaltas(fallo.EsDelArchivo() ? fallo.Detalle() : fallo.what()));
}

template <typename Hacer>
auto DeReporte(Hacer hacer, const char* nombre = volcadoDeOpenSql) {
    try {
        return hacer();
    } catch (const FalloDeBase& fallo) {
        Volcar(nombre, fallo);
    }
}

// The name in "no such table: main.NAME", as the system has it.
std::string NombreDeTabla(std::string_view dicho) {
    const std::string nombre =
        DesdeUtf8ConFaltas(dicho.substr(dicho.find('.') == std::string_view::npos ? 0 : dicho.find('.') + 1));
    return Mayusculas(nombre);
}

ValorDeBase LeerValor(const Sentencia& sentencia, int columna) {
    switch (sentencia.ClaseDe(columna)) {
        case Sentencia::Clase::Entero: return sentencia.Entero(columna);
        case Sentencia::Clase::Flotante: return sentencia.Flotante(columna);
        case Sentencia::Clase::Texto: {
            std::string texto = sentencia.Texto(columna);
            texto.resize(SinBlancosDetras(texto).size());
            return texto;
        }
        case Sentencia::Clase::Bloque: return std::string(sentencia.Bytes(columna));
        case Sentencia::Clase::Nada: break;
    }
    return std::monostate{};
}

// The part of a long column that its length lets through.
std::string_view ParteLarga(std::span<const ValorDeBase> fila, int larga) {
    const auto* const texto = std::get_if<std::string>(&fila[static_cast<std::size_t>(larga)]);
    if (texto == nullptr) return {};
    const auto* const largo = std::get_if<std::int64_t>(&fila[static_cast<std::size_t>(larga) - 1]);
    std::string_view parte = *texto;
    if (largo != nullptr) parte = parte.substr(0, static_cast<std::size_t>(std::max<std::int64_t>(*largo, 0)));
    return SinBlancosDetras(parte);
}

}  // namespace

// ---- Rows that a SELECT found ----

BaseDePractica::Cursor::Cursor(BaseDePractica& base, std::string clave, std::unique_ptr<Sentencia> sentencia, const char* volcado)
    : base_(base), clave_(std::move(clave)), sentencia_(std::move(sentencia)), volcado_(volcado) {
    base_.cursores_.push_back(this);
}

BaseDePractica::Cursor::~Cursor() { Soltar(); }

// The statement serves the next one that asks for it.
void BaseDePractica::Cursor::Soltar() {
    if (sentencia_ == nullptr) return;
    sentencia_->Reiniciar();
    std::erase(base_.cursores_, this);
    if (base_.libres_.size() > muchasSentencias) base_.libres_.clear();
    base_.libres_[clave_].push_back(std::move(sentencia_));
}

bool BaseDePractica::Cursor::Leer(std::vector<ValorDeBase>& fila) {
    if (sentencia_ == nullptr) return false;
    if (!sentencia_->Paso()) {
        Soltar();
        return false;
    }
    fila.resize(static_cast<std::size_t>(sentencia_->Columnas()));
    for (std::size_t i = 0; i < fila.size(); ++i) fila[i] = LeerValor(*sentencia_, static_cast<int>(i));
    return true;
}

bool BaseDePractica::Cursor::Siguiente(std::vector<ValorDeBase>& fila) {
    if (filas_.empty()) return DeReporte([&] { return Leer(fila); }, volcado_);
    fila = std::move(filas_.front());
    filas_.pop_front();
    return true;
}

void BaseDePractica::Cursor::Vaciar() {
    std::vector<ValorDeBase> fila;
    while (Leer(fila)) filas_.push_back(std::move(fila));
}

void BaseDePractica::VaciarCursores() {
    while (!cursores_.empty()) cursores_.back()->Vaciar();
}

std::unique_ptr<Sentencia> BaseDePractica::TomarSentencia(const std::string& clave) {
    const auto lugar = libres_.find(clave);
    if (lugar == libres_.end() || lugar->second.empty()) return nullptr;
    auto sentencia = std::move(lugar->second.back());
    lugar->second.pop_back();
    return sentencia;
}

// ---- Open SQL ----

std::unique_ptr<abap::FilasDeBase> BaseDePractica::Seleccionar(const abap::ConsultaDeBase& consulta) {
    return DeReporte([&]() -> std::unique_ptr<abap::FilasDeBase> {
        const auto& entrada = Pedir(consulta.tabla);
        const auto texto = EscribirSeleccion(entrada.definicion, entrada.lugar, consulta, cliente_);
        auto sentencia = TomarSentencia(texto.texto);
        if (sentencia == nullptr) sentencia = conexion_->Preparar(texto.texto);
        texto.Ligar(*sentencia, true);
        return std::make_unique<Cursor>(*this, texto.texto, std::move(sentencia), volcadoDeOpenSql);
    });
}

void BaseDePractica::LigarFila(Sentencia& sentencia, const DefinicionDeTabla& tabla, std::span<const ValorDeBase> fila,
                               bool comoEs) {
    const auto& columnas = tabla.estructura.componentes;
    if (fila.size() != columnas.size()) {
        throw abap::Volcado(volcadoDeOpenSql, "A row of the table " + tabla.estructura.nombre + " has other columns");
    }
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        const int lugar = static_cast<int>(i);
        if (!comoEs && lugar == tabla.cliente) {
            sentencia.LigarTexto(lugar, cliente_);
        } else if (lugar == tabla.larga) {
            sentencia.LigarTexto(lugar, ParteLarga(fila, lugar));
        } else {
            LigarValor(sentencia, lugar, fila[i], columnas[i].tipo);
        }
    }
}

// The values of the key, from a place of the statement on.
void BaseDePractica::LigarClave(Sentencia& sentencia, const DefinicionDeTabla& tabla, std::span<const ValorDeBase> fila,
                                int desde) {
    const auto& columnas = tabla.estructura.componentes;
    for (std::size_t i = 0; i < columnas.size() && i < fila.size(); ++i) {
        if (!columnas[i].clave) continue;
        if (static_cast<int>(i) == tabla.cliente) {
            sentencia.LigarTexto(desde++, cliente_);
        } else {
            LigarValor(sentencia, desde++, fila[i], columnas[i].tipo);
        }
    }
}

bool BaseDePractica::Insertar(const abap::Estructura& tabla, std::span<const ValorDeBase> fila) {
    return DeReporte([&] {
        auto& entrada = PedirParaEscribir(tabla.nombre);
        if (entrada.insertar == nullptr)
            entrada.insertar = conexion_->Preparar(EscribirInsercion(entrada.definicion, entrada.lugar));
        LigarFila(*entrada.insertar, entrada.definicion, fila, false);
        entrada.insertar->Ejecutar();
        if (conexion_->Cambios() == 0) return false;
        if (oyente_ == nullptr) return true;
        std::vector<ValorDeBase> guardada(fila.begin(), fila.end());
        const auto& definicion = entrada.definicion;
        if (definicion.cliente >= 0) guardada[static_cast<std::size_t>(definicion.cliente)] = cliente_;
        if (definicion.larga >= 0) {
            guardada[static_cast<std::size_t>(definicion.larga)] = std::string(ParteLarga(fila, definicion.larga));
        }
        oyente_->Inserta(definicion.estructura, guardada);
        return true;
    });
}

bool BaseDePractica::PonerFilaEn(const DefinicionDeTabla& tabla, std::span<const ValorDeBase> fila) {
    auto& entrada = PedirParaEscribir(tabla.estructura.nombre);
    if (entrada.insertar == nullptr) entrada.insertar = conexion_->Preparar(EscribirInsercion(entrada.definicion, entrada.lugar));
    LigarFila(*entrada.insertar, entrada.definicion, fila, true);
    entrada.insertar->Ejecutar();
    return conexion_->Cambios() > 0;
}

std::int64_t BaseDePractica::Actualizar(const std::string& tabla, std::span<const abap::AsignacionDeBase> cambios,
                                        const abap::CondicionDeBase& donde) {
    return DeReporte([&] {
        const auto& entrada = PedirParaEscribir(tabla);
        const auto texto = EscribirActualizacion(entrada.definicion, entrada.lugar, cambios, donde, cliente_);
        auto& sentencia = conexion_->Guardada(texto.texto);
        texto.Ligar(sentencia, true);
        sentencia.Ejecutar();
        const auto filas = conexion_->Cambios();
        if (oyente_ != nullptr) oyente_->Actualiza(tabla, filas);
        return filas;
    });
}

std::int64_t BaseDePractica::ActualizarFila(const abap::Estructura& tabla, std::span<const ValorDeBase> fila) {
    return DeReporte([&]() -> std::int64_t {
        auto& entrada = PedirParaEscribir(tabla.nombre);
        const auto& definicion = entrada.definicion;
        std::int64_t filas = 0;
        if (definicion.TieneClave()) {
            if (entrada.actualizar == nullptr) {
                entrada.actualizar = conexion_->Preparar(EscribirActualizacionDeFila(definicion, entrada.lugar));
            }
            int lugar = 0;
            for (std::size_t i = 0; i < fila.size() && i < definicion.estructura.componentes.size(); ++i) {
                const auto& columna = definicion.estructura.componentes[i];
                if (columna.clave) continue;
                if (static_cast<int>(i) == definicion.larga) {
                    entrada.actualizar->LigarTexto(lugar++, ParteLarga(fila, definicion.larga));
                } else {
                    LigarValor(*entrada.actualizar, lugar++, fila[i], columna.tipo);
                }
            }
            LigarClave(*entrada.actualizar, definicion, fila, lugar);
            entrada.actualizar->Ejecutar();
            filas = conexion_->Cambios();
        }
        if (oyente_ != nullptr) oyente_->Actualiza(tabla.nombre, filas);
        return filas;
    });
}

std::int64_t BaseDePractica::Borrar(const std::string& tabla, const abap::CondicionDeBase& donde) {
    return DeReporte([&] {
        const auto& entrada = PedirParaEscribir(tabla);
        const auto texto = EscribirBorrado(entrada.definicion, entrada.lugar, donde, cliente_);
        auto& sentencia = conexion_->Guardada(texto.texto);
        texto.Ligar(sentencia, true);
        sentencia.Ejecutar();
        const auto filas = conexion_->Cambios();
        if (oyente_ != nullptr) oyente_->Borra(tabla, filas);
        return filas;
    });
}

std::int64_t BaseDePractica::BorrarFila(const abap::Estructura& tabla, std::span<const ValorDeBase> fila) {
    return DeReporte([&]() -> std::int64_t {
        auto& entrada = PedirParaEscribir(tabla.nombre);
        std::int64_t filas = 0;
        if (entrada.definicion.TieneClave()) {
            if (entrada.borrar == nullptr) {
                entrada.borrar = conexion_->Preparar(EscribirBorradoDeFila(entrada.definicion, entrada.lugar));
            }
            LigarClave(*entrada.borrar, entrada.definicion, fila, 0);
            entrada.borrar->Ejecutar();
            filas = conexion_->Cambios();
        }
        if (oyente_ != nullptr) oyente_->Borra(tabla.nombre, filas);
        return filas;
    });
}

void BaseDePractica::Confirmar() {
    DeReporte([&] { TerminarUnidad(); });
    if (oyente_ != nullptr) oyente_->Confirma();
}

void BaseDePractica::Deshacer() {
    DeReporte([&] { AbandonarUnidad(); });
    if (oyente_ != nullptr) oyente_->Deshace();
}

// ---- Native SQL ----

// Only what reads rows of tables; tables of this system's own only through its views.
int BaseDePractica::Autorizar(void* base, int accion, const char* uno, const char* /*dos*/, const char* /*esquema*/,
                              const char* vista) {
    if (!static_cast<BaseDePractica*>(base)->nativa_) return SQLITE_OK;
    const std::string_view nombre = uno == nullptr ? std::string_view{} : std::string_view(uno);
    switch (accion) {
        case SQLITE_SELECT:
        case SQLITE_FUNCTION:
        case SQLITE_RECURSIVE: return SQLITE_OK;
        case SQLITE_READ: return vista == nullptr && nombre.starts_with("_qor_") ? SQLITE_DENY : SQLITE_OK;
        default: return SQLITE_DENY;
    }
}

std::unique_ptr<Sentencia> BaseDePractica::PrepararNativa(const std::string& texto) {
    constexpr std::string_view sinTabla = "no such table: ";
    // A table that is made at the moment of its first use is asked for once.
    for (std::string pedida;;) {
        nativa_ = true;
        try {
            auto sentencia = conexion_->PrepararUna(texto);
            nativa_ = false;
            return sentencia;
        } catch (const FalloDeBase& fallo) {
            nativa_ = false;
            const std::string_view motivo = fallo.what();
            if (!motivo.starts_with(sinTabla)) throw;
            const std::string nombre = NombreDeTabla(motivo.substr(sinTabla.size()));
            auto* const entrada = nombre == pedida ? nullptr : Buscar(nombre);
            if (entrada == nullptr || entrada->hecha) throw;
            Hacer(*entrada);
            pedida = nombre;
        }
    }
}

std::unique_ptr<abap::FilasDeBase> BaseDePractica::SeleccionarNativo(const std::string& texto,
                                                                     std::span<const ValorDeBase> valores) {
    return DeReporte(
        [&]() -> std::unique_ptr<abap::FilasDeBase> {
            std::string clave = '\n' + texto;  // apart from those of Open SQL, which may do more
            auto sentencia = TomarSentencia(clave);
            if (sentencia == nullptr) sentencia = PrepararNativa(texto);
            if (sentencia == nullptr || !sentencia->SoloLee() || sentencia->Columnas() == 0) {
                throw abap::Volcado(volcadoNativo, "Native SQL of the practice system is SELECT alone");
            }
            for (std::size_t i = 0; i < valores.size(); ++i) {
                const int lugar = static_cast<int>(i);
                if (const auto* const entero = std::get_if<std::int64_t>(&valores[i])) {
                    sentencia->Ligar(lugar, *entero);
                } else if (const auto* const flotante = std::get_if<double>(&valores[i])) {
                    sentencia->Ligar(lugar, *flotante);
                } else {
                    const auto* const letras = std::get_if<std::string>(&valores[i]);
                    std::string_view valor = letras == nullptr ? std::string_view{} : *letras;
                    sentencia->LigarTexto(lugar, SinBlancosDetras(valor), true);
                }
            }
            return std::make_unique<Cursor>(*this, std::move(clave), std::move(sentencia), volcadoNativo);
        },
        volcadoNativo);
}

}  // namespace qor
