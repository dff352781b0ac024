#include "dataset/data_set.h"

#include <unordered_set>

#include "base/failure.h"
#include "base/text.h"
#include "dataset/columns.h"
#include "dataset/line_reader.h"

namespace qor {

namespace {

TipoArchivo TipoDeLinea(std::string_view primeraLinea) {
    if (EsDefinicion(primeraLinea)) return TipoArchivo::DATAERRORS;
    return Columnas(primeraLinea, 41, 45) == "0000M" ? TipoArchivo::BDC : TipoArchivo::UNKNOWN;
}

constexpr std::size_t maximoDefiniciones = 1001;
constexpr std::uintmax_t lineasPorAviso = 1 << 14;
constexpr std::size_t maximoDeLinea = std::size_t{1} << 16;  // no column that is looked at lies behind

constexpr int maximo16 = 32767;

int Entero16(std::string_view texto) {
    const double numero = Numero(texto);
    if (numero < 0 || numero > maximo16) throw FalloDeEjecucion("a number beyond 16 bits in a field definition");
    return static_cast<int>(numero);
}

// The lists of a scan, each name once.
class Examen {
public:
    void Linea(std::string_view linea) {
        if (datos_.lineas++ == 0) datos_.tipo = TipoDeLinea(linea);
        if (datos_.tipo == TipoArchivo::BDC) LineaDeSesion(linea);
        if (datos_.tipo == TipoArchivo::DATAERRORS && EsDefinicion(linea)) LineaDeDefinicion(linea);
    }

    JuegoDeDatos Resultado(const IdentidadDeArchivo& identidad) {
        datos_.identidad = identidad;
        return std::move(datos_);
    }
    TipoArchivo Tipo() const { return datos_.tipo; }

private:
    void LineaDeSesion(std::string_view linea) {
        if (EsInicioDeTransaccion(linea)) {
            Agregar(datos_.transacciones, transacciones_, std::string(Recortar(Columnas(linea, 46, 177))));
        } else if (EsCampoDeSesion(linea)) {
            const std::string nombre(CampoDeSesion(linea));
            if (nombre != "BDC_OKCODE" && nombre != "BDC_CURSOR" && nombre != "BDC_SUBSCR") Agregar(datos_.campos, campos_, nombre);
        }
    }

    void LineaDeDefinicion(std::string_view linea) {
        if (datos_.definiciones.size() == maximoDefiniciones) throw FalloDeEjecucion("more than 1001 field definitions");
        Definicion definicion;
        definicion.nombre = Recortar(DesdeColumna(linea, 69));
        definicion.linea = Entero16(Columnas(linea, 24, 33));
        definicion.ancho = Entero16(Columnas(linea, 63, 67));
        if (!datos_.definiciones.empty() && datos_.definiciones.back().linea == definicion.linea) {
            definicion.posicion = datos_.definiciones.back().posicion + datos_.definiciones.back().ancho;
        }
        if (definicion.posicion > maximo16) throw FalloDeEjecucion("a record that is wider than 32767 characters");
        Agregar(datos_.campos, campos_, definicion.nombre);
        datos_.definiciones.push_back(std::move(definicion));
    }

    static void Agregar(std::vector<std::string>& lista, std::unordered_set<std::string>& vistos, const std::string& nombre) {
        if (vistos.insert(nombre).second) lista.push_back(nombre);
    }

    JuegoDeDatos datos_;
    std::unordered_set<std::string> transacciones_;
    std::unordered_set<std::string> campos_;
};

}  // namespace

const char* NombreDeTipo(TipoArchivo tipo) {
    switch (tipo) {
        case TipoArchivo::BDC: return "BDC";
        case TipoArchivo::DATAERRORS: return "DATAERRORS";
        case TipoArchivo::UNKNOWN: break;
    }
    return "UNKNOWN";
}

int JuegoDeDatos::DevolverAnchoMayor(std::string_view campo) const {
    int mayor = 0;
    for (const auto& definicion : definiciones) {
        if (definicion.nombre == Recortar(campo)) mayor = std::max(mayor, definicion.ancho);
    }
    return mayor;
}

std::optional<JuegoDeDatos> ExaminarJuegoDeDatos(const std::filesystem::path& ruta, const TextosIdioma& textos, Vista& vista,
                                                 const Progreso& progreso) {
    try {
        ArchivoAbierto archivo(ruta);
        const auto identidad = archivo.Identidad();
        LectorDeLineas lector(archivo, maximoDeLinea);
        LectorDeLineas::Linea linea;
        Examen examen;
        for (std::uintmax_t n = 0; lector.Siguiente(linea); ++n) {
            examen.Linea(lector.Texto(linea));
            if (examen.Tipo() == TipoArchivo::UNKNOWN) break;
            lector.MoverAncla(linea.inicio);
            if (n % lineasPorAviso != 0 || !progreso) continue;
            if (!progreso(static_cast<double>(lector.Leidos()) / static_cast<double>(lector.Tamano()))) return std::nullopt;
        }
        if (examen.Tipo() != TipoArchivo::UNKNOWN) return examen.Resultado(identidad);
        vista.Advertir(SobreArchivo(Componer(textos, {403}), ruta));
    } catch (const FalloDeEjecucion& fallo) {
        vista.Advertir(ConDetalle(Componer(textos, {328}), fallo, ruta));
    }
    return std::nullopt;
}

std::string AjustarNuevoValor(const JuegoDeDatos& datos, std::string_view campo, const std::string& nuevo,
                              const TextosIdioma& textos, Vista& vista) {
    if (datos.tipo != TipoArchivo::DATAERRORS) return nuevo;
    const int ancho = datos.DevolverAnchoMayor(campo);
    if (static_cast<int>(Recortar(nuevo).size()) <= ancho) return nuevo;
    vista.Advertir(Componer(textos, {333, " ", std::to_string(ancho), "."}));
    return nuevo.substr(0, static_cast<std::size_t>(ancho));
}

}  // namespace qor
