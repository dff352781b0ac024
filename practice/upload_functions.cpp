#include "practice/upload_functions.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "abap/values/conversion.h"
#include "base/failure.h"
#include "base/piecewise_reader.h"
#include "base/text.h"
#include "practice/batch_rows.h"
#include "practice/function_parameters.h"

namespace qor {

namespace {

enum class Forma { Lineas, Tabuladores, Bytes };

// An elementary component of a row, wherever it is nested.
struct Hoja {
    std::uint32_t lugar = 0;
    abap::TipoDeCampo tipo;
};

void AgregarHojas(const abap::Estructura& estructura, std::uint32_t lugar, std::vector<Hoja>& hojas) {
    for (const auto& componente : estructura.componentes) {
        const auto aqui = lugar + componente.desplazamiento;
        if (componente.tipo.estructura) {
            AgregarHojas(*componente.tipo.estructura, aqui, hojas);
        } else {
            hojas.push_back({aqui, componente.tipo});
        }
    }
}

void PonerCaracteres(std::string_view texto, std::uint8_t* donde, std::size_t largo) {
    const auto cuantos = std::min(texto.size(), largo);
    std::memcpy(donde, texto.data(), cuantos);
    std::memset(donde + cuantos, ' ', largo - cuantos);
}

// Makes rows of a table out of lines.
class LlenadorDeTabla {
public:
    explicit LlenadorDeTabla(abap::TablaInterna& tabla) : tabla_(tabla), linea_(tabla.Linea()) {
        if (linea_.estructura) {
            AgregarHojas(*linea_.estructura, 0, hojas_);
        } else {
            hojas_.push_back({0, linea_});
        }
    }

    void AgregarLinea(std::string_view linea) {
        std::uint8_t* const fila = tabla_.Agregar();
        if (linea_.tipo == abap::Tipo::C || linea_.tipo == abap::Tipo::Estructura) {
            PonerCaracteres(linea, fila, linea_.largo);
        } else {
            const auto campo = tabla_.CampoDeFila(tabla_.Filas() - 1);
            abap::PonerInicial(campo, nullptr);
            abap::Mover(abap::CampoDe(linea), campo);
        }
    }

    // The parts of the line into the components, each by the rule of its type.
    void AgregarPartes(std::string_view linea) {
        std::uint8_t* const fila = tabla_.Agregar();
        abap::PonerInicial(tabla_.CampoDeFila(tabla_.Filas() - 1), linea_.estructura);
        for (const auto& hoja : hojas_) {
            const auto parte = AntesDe(linea, '\t');
            if (hoja.tipo.tipo == abap::Tipo::C) {
                PonerCaracteres(parte, fila + hoja.lugar, hoja.tipo.largo);
            } else if (!parte.empty()) {
                abap::Mover(abap::CampoDe(parte), abap::CampoDeComponente({{}, hoja.lugar, hoja.tipo}, fila));
            }
            if (parte.size() == linea.size()) break;
            linea.remove_prefix(parte.size() + 1);
        }
    }

    void AgregarBytes(std::string_view bytes) {
        std::uint8_t* const fila = tabla_.Agregar();
        abap::PonerInicial(tabla_.CampoDeFila(tabla_.Filas() - 1), linea_.estructura);
        std::memcpy(fila, bytes.data(), std::min<std::size_t>(bytes.size(), linea_.largo));
    }

private:
    abap::TablaInterna& tabla_;
    const abap::TipoDeCampo linea_;
    std::vector<Hoja> hojas_;
};

std::uint64_t LlenarTabla(LectorPorTrozos& lector, abap::TablaInterna& tabla, Forma forma) {
    LlenadorDeTabla llenador(tabla);
    const bool cadena = tabla.Linea().tipo == abap::Tipo::Cadena;
    std::string_view linea;
    if (forma == Forma::Tabuladores) {
        while (lector.Linea(linea)) llenador.AgregarPartes(linea);
    } else if (forma == Forma::Lineas || cadena) {
        const auto maximo = cadena ? LectorPorTrozos::todo : tabla.Linea().largo;
        while (lector.Linea(linea, maximo)) llenador.AgregarLinea(linea);
    } else {
        std::string bytes;
        while (lector.Bytes(bytes, tabla.Linea().largo)) llenador.AgregarBytes(bytes);
    }
    return lector.Leidos();
}

std::string Subir(const abap::LlamadaAFuncion& llamada, NombresDeArchivos& nombres, Forma forma) {
    auto& tabla = ExigirTabla(llamada, "DATA_TAB");
    const std::string nombre = TextoExportado(llamada, "FILENAME");
    const auto ruta = nombres.ParaLeer(nombre);
    if (!ruta) return "FILE_OPEN_ERROR";
    std::optional<LectorPorTrozos> lector;
    try {
        lector.emplace(ArchivoAbierto(*ruta));
    } catch (const FalloDeArchivo& fallo) {
        nombres.SinLeer(nombre, fallo);
        return "FILE_OPEN_ERROR";
    }
    tabla.Vaciar();
    try {
        const auto leidos = LlenarTabla(*lector, tabla, forma);
        DevolverTexto(llamada, "FILELENGTH", std::to_string(leidos));
        return {};
    } catch (const FalloDeArchivo& fallo) {
        // Half a file would be taken for a whole one by a report that does not ask.
        tabla.Vaciar();
        nombres.SinLeer(nombre, fallo);
        return "FILE_READ_ERROR";
    }
}

// The kind of file: ASC where the call names none. Nothing where there is no such kind.
std::optional<Forma> LeerForma(const abap::LlamadaAFuncion& llamada) {
    const std::string tipo = Mayusculas(TextoExportado(llamada, "FILETYPE"));
    if (tipo.empty() || tipo == "ASC") return Forma::Lineas;
    if (tipo == "DAT") return Forma::Tabuladores;
    if (tipo == "BIN") return Forma::Bytes;
    return std::nullopt;
}

}  // namespace

std::string LlamarGUI_UPLOAD(const abap::LlamadaAFuncion& llamada, NombresDeArchivos& nombres) {
    auto forma = LeerForma(llamada);
    if (!forma) return "INVALID_TYPE";
    if (*forma == Forma::Lineas && !TextoExportado(llamada, "HAS_FIELD_SEPARATOR").empty()) forma = Forma::Tabuladores;
    return Subir(llamada, nombres, *forma);
}

std::string LlamarWS_UPLOAD(const abap::LlamadaAFuncion& llamada, NombresDeArchivos& nombres) {
    const auto forma = LeerForma(llamada);
    return forma ? Subir(llamada, nombres, *forma) : "INVALID_TYPE";
}

}  // namespace qor
