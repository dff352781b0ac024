#include "input/convert_tables.h"

#include <algorithm>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "input/convert_rows.h"
#include "input/csv_writer.h"

namespace qor {

namespace {

constexpr char separadorPropio = ';';

// Files of values, one for each kind.
class TablasDeTexto : public EscritorDeTablas {
public:
    TablasDeTexto(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases, const Tablas& tablas,
                  const OpcionesDeConversion& opciones) {
        const char dicho = opciones.separador != 0 ? opciones.separador : separadorPropio;
        const char separador = tablas.forma == FormaDeTabla::Tabuladores ? '\t' : dicho;
        for (std::size_t i = 0; i < diseno.Clases().size(); ++i) {
            const auto& clase = diseno.Clases()[i];
            const bool conNumero = ConNumero(diseno, clase);
            tablas_.push_back({std::make_unique<EscritorCsv>(tablas.archivos.at(i), separador),
                               ConversoresDe(diseno, clase, clases, opciones.celdas), conNumero});
            if (opciones.filaDeTitulos > 0) tablas_.back().archivo->Fila(Titulos(clase, conNumero));
        }
    }

    bool Cabe(int clase, const std::vector<std::string_view>& valores, std::size_t& campo, std::string& motivo) override {
        const auto& conversores = tablas_[static_cast<std::size_t>(clase)].conversores;
        for (campo = 0; campo < valores.size(); ++campo) {
            if (!conversores[campo].AlTexto(valores[campo], texto_, motivo)) return false;
        }
        return true;
    }

    void Fila(int clase, std::uint64_t linea, const std::vector<std::string_view>& valores) override {
        const auto& tabla = tablas_[static_cast<std::size_t>(clase)];
        const std::size_t delante = tabla.conNumero ? 1 : 0;
        fila_.resize(delante + valores.size());
        if (tabla.conNumero) fila_[0] = std::to_string(linea);
        std::string motivo;
        for (std::size_t i = 0; i < valores.size(); ++i) tabla.conversores[i].AlTexto(valores[i], fila_[delante + i], motivo);
        tabla.archivo->Fila(fila_);
    }

    void PonerEnSuLugar() override {
        for (const auto& tabla : tablas_) tabla.archivo->LlevarAlDisco();
        for (const auto& tabla : tablas_) tabla.archivo->PonerEnSuLugar();
    }

private:
    struct Tabla {
        std::unique_ptr<EscritorCsv> archivo;
        std::vector<ConversorDeCampo> conversores;
        bool conNumero;
    };
    std::vector<Tabla> tablas_;
    std::vector<std::string> fila_;
    std::string texto_;
};

// A workbook with a sheet for each kind.
class TablasDeLibro : public EscritorDeTablas {
public:
    TablasDeLibro(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases, const Tablas& tablas,
                  const OpcionesDeConversion& opciones, bool grande)
        : libro_(tablas.archivos.at(0), LibroNuevo::Modo::PorFilas, grande) {
        for (const auto& clase : diseno.Clases()) {
            auto& hoja = hojas_.emplace_back();
            hoja.lugar = libro_.AgregarHoja(NombreDeHoja(clase));
            hoja.conNumero = ConNumero(diseno, clase);
            hoja.conversores = ConversoresDe(diseno, clase, clases, opciones.celdas);
            for (const auto& campo : clase.campos) {
                const auto* const deCampo = clases.Buscar(campo.nombre);
                hoja.codigosDeFecha.push_back(deCampo != nullptr ? CodigoDeFecha(deCampo->formato) : "");
            }
            const auto columnas = ColumnasDeHoja(clase, clases, hoja.conNumero);
            if (opciones.filaDeTitulos > 0) {
                libro_.PonerTitulos(hoja.lugar, Titulos(clase, hoja.conNumero), columnas);
                hoja.fila = 1;
            } else {
                libro_.PonerColumnas(hoja.lugar, columnas);
            }
        }
    }

    bool Cabe(int, const std::vector<std::string_view>& valores, std::size_t& campo, std::string& motivo) override {
        for (campo = 0; campo < valores.size(); ++campo) {
            if (valores[campo].size() <= maximoDeTextoDeCelda) continue;
            motivo = "the value is longer than a cell can hold";
            return false;
        }
        return true;
    }

    void Fila(int clase, std::uint64_t linea, const std::vector<std::string_view>& valores) override {
        auto& hoja = hojas_[static_cast<std::size_t>(clase)];
        if (hoja.fila >= maximoDeFilasDeHoja) throw FalloDeEjecucion("there are more records than a sheet has rows");
        const std::size_t delante = hoja.conNumero ? 1 : 0;
        if (hoja.conNumero) libro_.Numero(hoja.lugar, hoja.fila, 0, static_cast<double>(linea), "0");
        for (std::size_t i = 0; i < valores.size(); ++i) {
            const auto valor = hoja.conversores[i].AlLibro(valores[i]);
            if (valor.clase == ValorDeCelda::Clase::Texto) {
                libro_.Texto(hoja.lugar, hoja.fila, delante + i, valor.texto);
            } else {
                const bool fecha = valor.clase == ValorDeCelda::Clase::Fecha;
                libro_.Numero(hoja.lugar, hoja.fila, delante + i, valor.numero,
                              fecha ? hoja.codigosDeFecha[i] : CodigoDeDecimales(valor.decimales));
            }
        }
        ++hoja.fila;
    }

    void PonerEnSuLugar() override { libro_.PonerEnSuLugar(); }

private:
    struct Hoja {
        std::size_t lugar = 0;
        bool conNumero = false;
        std::uint64_t fila = 0;  // the next one
        std::vector<ConversorDeCampo> conversores;
        std::vector<std::string> codigosDeFecha;
    };
    LibroNuevo libro_;
    std::vector<Hoja> hojas_;
};

}  // namespace

std::vector<LibroNuevo::FormatoDeColumna> ColumnasDeHoja(const ClaseDeRegistro& clase, const ClasesDeCampos& clases,
                                                         bool conNumero) {
    std::vector<LibroNuevo::FormatoDeColumna> columnas;
    if (conNumero) columnas.push_back({"0", 4});
    for (const auto& campo : clase.campos) {
        LibroNuevo::FormatoDeColumna columna;
        columna.ancho = static_cast<double>(std::max(campo.ancho, campo.nombre.size()));
        const auto* const deCampo = clases.Buscar(campo.nombre);
        if (deCampo != nullptr && deCampo->tipo == ClaseDeCampo::Tipo::Numero) columna.codigo = "General";
        if (deCampo != nullptr && deCampo->tipo == ClaseDeCampo::Tipo::Fecha && DiceElDia(deCampo->formato)) {
            columna.codigo = CodigoDeFecha(deCampo->formato);
        }
        columnas.push_back(std::move(columna));
    }
    return columnas;
}

std::unique_ptr<EscritorDeTablas> EscritorDeTablas::Hacer(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases,
                                                          const std::vector<std::filesystem::path>& entradas, const Tablas& tablas,
                                                          const OpcionesDeConversion& opciones) {
    if (tablas.forma != FormaDeTabla::Xlsx) return std::make_unique<TablasDeTexto>(diseno, clases, tablas, opciones);
    // A row becomes at most some twenty times as long as its line.
    constexpr std::uintmax_t sinDuda = std::uintmax_t{128} << 20;
    std::uintmax_t tamano = 0;
    for (const auto& entrada : entradas) tamano += Identidad(entrada).value_or(IdentidadDeArchivo{}).tamano;
    return std::make_unique<TablasDeLibro>(diseno, clases, tablas, opciones, tamano > sinDuda);
}

}  // namespace qor
