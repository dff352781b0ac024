#include "sap/import.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/conversions.h"

namespace qor {

namespace {

class LectorDeSesion {
public:
    LectorDeSesion(std::vector<FilaDeTransaccion>& tabla, std::string_view texto, int inicio,
                   const std::function<void()>& malEscrita)
        : tabla_(tabla), malEscrita_(malEscrita), lineas_(PartirEnLineas(texto)), Inicio_(inicio), Fila_(inicio) {}

    void Leer() {
        while (siguiente_ < lineas_.size() && Fila_ <= ultimaFila) {
            std::string_view linea = LeerLinea();
            if (Tramo(linea, 41, 5) == "0000T") FormatoSesion_ = true;
            if (FormatoSesion_) {
                LeerRegistro(Mayusculas(linea));
            } else if (Tramo(linea, 41, 5) != "0000M") {  // the header of a session, whatever its name
                LeerTextoDeGrabacion(linea);
            }
        }
    }

private:
    std::string_view LeerLinea() {
        if (siguiente_ >= lineas_.size()) throw FalloDeEjecucion("the recording ends inside a field");
        return lineas_[siguiente_++];
    }

    FilaDeTransaccion& Fila(int fila) {
        if (fila >= filasTabla) throw FalloDeEjecucion("the program side is full");
        return tabla_[fila];
    }

    std::string Primero(std::string_view linea) {
        auto primero = ExtraerPrimero(linea);
        if (primero.malEscrita) malEscrita_();
        return std::move(primero.texto);
    }

    // The first row of a transaction is left free for its head, whose code comes last.
    void ReservarCabecera() {
        if (Fila_ != Inicio_) return;
        Cabecera_ = Inicio_;
        ++Fila_;
    }

    // The three tests run one after the other, the last one on the last line read.
    void LeerTextoDeGrabacion(std::string_view linea) {
        const std::string mayusculas = Mayusculas(linea);
        if (Contiene(mayusculas, "BDC_DYNPRO")) LeerPantalla(linea);
        if (Contiene(mayusculas, "BDC_FIELD")) linea = LeerCampo(linea, Contiene(mayusculas, "BDC_SUBSCR"));
        if (Contiene(Mayusculas(linea), "BDC_TRANSACTION")) LeerTransaccion(linea);
    }

    void LeerPantalla(std::string_view linea) {
        ReservarCabecera();
        auto& fila = Fila(Fila_);
        fila.programa = Primero(linea);
        fila.dynpro = ExtraerSegundo(linea);
        ++Fila_;
    }

    std::string_view LeerCampo(std::string_view linea, bool esSubpantalla) {
        ReservarCabecera();
        auto& fila = Fila(Fila_);
        fila.campo = Primero(linea);
        linea = LeerLinea();
        fila.valor = "'" + Primero(linea);
        if (esSubpantalla) {
            linea = LeerLinea();
            fila.valor += Primero(linea);  // program and number touch
        }
        fila.valor += "'";
        ++Fila_;
        return linea;
    }

    void LeerTransaccion(std::string_view linea) {
        ReservarCabecera();
        auto& fila = Fila(Cabecera_);
        fila.programa = "TRANS";
        fila.dynpro = Primero(linea);
        // So an empty row separates two transactions.
        ++Fila_;
        Inicio_ = Fila_;
    }

    void LeerRegistro(std::string_view linea) {
        const auto campo = Recortar(Tramo(linea, 46, 132));
        auto& fila = Fila(Fila_);
        const auto clase = Tramo(linea, 45, 1);
        if (clase == "T") {
            fila.programa = "TRANS";
            fila.dynpro = campo;
        } else if (clase == "X") {
            fila.programa = Recortar(Tramo(linea, 1, 40));
            fila.dynpro = Recortar(Tramo(linea, 41, 4));
        } else if (clase == " ") {
            fila.campo = campo;
            fila.valor = "'" + ValorDeRegistro(linea) + "'";
        } else {
            return;
        }
        ++Fila_;
    }

    static std::string ValorDeRegistro(std::string_view linea) {
        if (Recortar(Tramo(linea, 46, 10)) != "BDC_SUBSCR") return std::string(Recortar(TramoDesde(linea, 178)));
        return std::string(Recortar(Tramo(linea, 178, 40))) + " " + std::string(Recortar(TramoDesde(linea, 218)));
    }

    std::vector<FilaDeTransaccion>& tabla_;
    const std::function<void()>& malEscrita_;
    std::vector<std::string_view> lineas_;
    std::size_t siguiente_ = 0;
    int Inicio_;
    int Fila_;
    int Cabecera_ = 0;
    bool FormatoSesion_ = false;
};

// The row from which the import writes; nothing when the user backs out.
std::optional<int> ElegirInicio(const Especificacion& especificacion, const TextosIdioma& textos, Vista& vista) {
    const int inicio = especificacion.PrimeraPosicionLibreTransaccion();
    if (inicio == 0) return 0;
    switch (vista.Preguntar(Componer(textos, {330, "\r\n", 331}), Botones::SiNoCancelar)) {
        case Respuesta::Si: return 0;
        case Respuesta::No: return inicio;
        default: return std::nullopt;
    }
}

int FilasConTexto(const std::vector<FilaDeTransaccion>& tabla, int desde) {
    return static_cast<int>(
        std::count_if(tabla.begin() + desde, tabla.end(), [](const FilaDeTransaccion& fila) { return !fila.Vacia(); }));
}

}  // namespace

void LeerSesion(std::vector<FilaDeTransaccion>& tabla, std::string_view texto, int inicio,
                const std::function<void()>& malEscrita) {
    LectorDeSesion(tabla, texto, inicio, malEscrita).Leer();
}

bool EsGrabacion(std::string_view texto) {
    constexpr int lineasDeCabecera = 2;
    int cabecera = 0;
    for (const auto linea : PartirEnLineas(texto)) {
        const auto clase = Tramo(linea, 41, 5);
        if (cabecera++ < lineasDeCabecera && (clase == "0000T" || clase == "0000M")) return true;
        if (!Contiene(linea, "'")) continue;
        const std::string mayusculas = Mayusculas(linea);
        if (Contiene(mayusculas, "BDC_DYNPRO") || Contiene(mayusculas, "BDC_TRANSACTION")) return true;
    }
    return false;
}

std::optional<Importacion> LeerImportacion(const Especificacion& especificacion, const std::filesystem::path& archivo,
                                           const TextosIdioma& textos, Vista& vista) {
    const auto inicio = ElegirInicio(especificacion, textos, vista);
    if (!inicio) return std::nullopt;
    if (*inicio > ultimaFila) {
        vista.Advertir(Componer(textos, {515}));
        return std::nullopt;
    }
    if (EstaEnBlanco(archivo.string())) {
        vista.Advertir(Componer(textos, {332}));
        return std::nullopt;
    }
    try {
        const std::string texto = LeerArchivo(archivo, limiteDeSesion);
        Importacion importacion{especificacion.TablaTransaccion, 0};
        // Row 1001 is never seen, and stays.
        if (*inicio == 0) std::fill_n(importacion.tabla.begin(), ultimaFila + 1, FilaDeTransaccion{});
        LeerSesion(importacion.tabla, texto, *inicio, [&] { vista.Advertir(Componer(textos, {372})); });
        importacion.filas = FilasConTexto(importacion.tabla, *inicio);
        return importacion;
    } catch (const FalloDeEjecucion& fallo) {
        vista.Advertir(ConDetalle(Componer(textos, {335}), fallo));
        return std::nullopt;
    }
}

void Importar(Documento& documento, Importacion importacion) {
    const auto& antes = documento.especificacion;
    documento.GuardarDeshacer(
        {RegistroDeshacer::Paso::Cambio, 0, 0,
         TablasDeAntes{Columna::Programa, antes.TablaArchivo, antes.TablaTransaccion, antes.VariablesGlobales}});
    documento.especificacion.TablaTransaccion = std::move(importacion.tabla);
}

}  // namespace qor
