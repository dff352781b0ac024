#include "input/template.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "input/convert.h"
#include "input/convert_tables.h"
#include "input/sheet.h"
#include "input/value_rules.h"
#include "input/xlsx_writer.h"

namespace qor {

namespace {

using Tipo = ClaseDeCampo::Tipo;

constexpr const char* hojaDeListas = "LISTS";
constexpr const char* notaDelNumero =
    "Tells where a record goes in the file. Numbers rise; give an order and its items the same number.";

std::string Caracteres(std::size_t cuantos) { return std::to_string(cuantos) + (cuantos == 1 ? " character" : " characters"); }

// The workbook while it is made.
class Plantilla {
public:
    Plantilla(const DisenoDeEntrada& diseno, const Especificacion& especificacion, const ClasesDeCampos& clases,
              const std::filesystem::path& documento, const std::filesystem::path& destino)
        : diseno_(diseno),
          especificacion_(especificacion),
          clases_(clases),
          documento_(documento),
          libro_(destino, LibroNuevo::Modo::Libre) {}

    void Escribir() {
        for (const auto& clase : diseno_.Clases()) EscribirHoja(clase);
        EscribirListas();
        libro_.PonerEnSuLugar();
    }

private:
    void EscribirHoja(const ClaseDeRegistro& clase) {
        const auto hoja = libro_.AgregarHoja(NombreDeHoja(clase));
        const bool conNumero = ConNumero(diseno_, clase);
        std::vector<bool> marcadas(conNumero ? 1 : 0, true);
        for (const auto& campo : clase.campos) {
            const auto* const deCampo = clases_.Buscar(campo.nombre);
            marcadas.push_back(campo.clave || (deCampo != nullptr && deCampo->obligatorio));
        }
        libro_.PonerTitulos(hoja, Titulos(clase, conNumero), ColumnasDeHoja(clase, clases_, conNumero), marcadas);
        if (conNumero) libro_.Nota(hoja, 0, 0, notaDelNumero);
        for (std::size_t i = 0; i < clase.campos.size(); ++i) {
            const auto columna = i + (conNumero ? 1 : 0);
            const auto nota = NotaDe(clase.campos[i]);
            if (!nota.empty()) libro_.Nota(hoja, 0, columna, nota);
            PonerRegla(hoja, columna, clase.campos[i]);
        }
    }

    std::string NotaDe(const CampoDeRegistro& campo) const {
        std::string nota(Recortar(especificacion_.TablaArchivo[static_cast<std::size_t>(campo.fila)].nota));
        const auto decir = [&nota](const std::string& linea) { nota += (nota.empty() ? "" : "\n") + linea; };
        if (campo.ancho > 0) decir("At most " + Caracteres(campo.ancho) + ".");
        if (campo.clave) decir("Tells to which record a row of another sheet belongs.");
        const auto* const clase = clases_.Buscar(campo.nombre);
        if (clase == nullptr) return nota;
        if (clase->obligatorio) decir("Required.");
        if (clase->tipo == Tipo::Numero) decir(std::string("A number; in the file with \"") + clase->decimal + "\".");
        if (clase->tipo == Tipo::Fecha) decir("A date; in the file as " + clase->formato + ".");
        if (!clase->patron.empty()) decir("Pattern: " + clase->patron);
        if (!clase->lista.empty()) decir("One of the values of " + clase->lista + ".");
        return nota;
    }

    void PonerRegla(std::size_t hoja, std::size_t columna, const CampoDeRegistro& campo) {
        lxw_data_validation regla{};
        regla.ignore_blank = LXW_VALIDATION_ON;
        regla.show_error = LXW_VALIDATION_ON;
        regla.dropdown = LXW_VALIDATION_ON;
        const auto* const clase = clases_.Buscar(campo.nombre);
        std::string formula;
        std::string mensaje;
        if (clase != nullptr && !clase->lista.empty()) {
            formula = FormulaDeLista(clase->lista, campo.nombre);
            if (formula.empty()) return;
            regla.validate = LXW_VALIDATION_TYPE_LIST_FORMULA;
            regla.value_formula = formula.data();
            mensaje = "The value is not in the list.";
        } else if (clase != nullptr && clase->tipo == Tipo::Numero) {
            constexpr double mayor = 999'999'999'999'999;
            regla.validate = LXW_VALIDATION_TYPE_DECIMAL;
            regla.criteria = LXW_VALIDATION_CRITERIA_BETWEEN;
            regla.minimum_number = -mayor;
            regla.maximum_number = mayor;
            mensaje = "The value is not a number of at most 15 digits.";
        } else if (clase != nullptr && clase->tipo == Tipo::Fecha && DiceElDia(clase->formato)) {
            regla.validate = LXW_VALIDATION_TYPE_DATE;
            regla.criteria = LXW_VALIDATION_CRITERIA_GREATER_THAN_OR_EQUAL_TO;
            regla.value_datetime = {1900, 3, 1, 0, 0, 0};
            mensaje = "The value is not a date.";
        } else if (campo.ancho > 0) {
            regla.validate = LXW_VALIDATION_TYPE_LENGTH;
            regla.criteria = LXW_VALIDATION_CRITERIA_LESS_THAN_OR_EQUAL_TO;
            regla.value_number = static_cast<double>(campo.ancho);
            mensaje = "The value has more than " + Caracteres(campo.ancho) + ".";
        } else {
            return;
        }
        regla.error_message = mensaje.data();
        libro_.Validar(hoja, columna, regla);
    }

    // The place of the values of a list; empty where there are none.
    std::string FormulaDeLista(const std::string& lista, const std::string& campo) {
        auto lugar = listas_.find(lista);
        if (lugar == listas_.end()) {
            auto valores = LeerListaDeCampo(documento_.parent_path(), clases_, Mayusculas(Recortar(campo)));
            if (valores.size() > maximoDeFilasDeHoja) valores.resize(maximoDeFilasDeHoja);
            lugar = listas_.emplace(lista, Lista{listas_.size(), std::move(valores)}).first;
        }
        if (lugar->second.valores.empty()) return {};
        const auto letras = LetrasDeColumna(lugar->second.columna);
        return std::string("=") + hojaDeListas + "!$" + letras + "$1:$" + letras + "$" +
               std::to_string(lugar->second.valores.size());
    }

    void EscribirListas() {
        if (listas_.empty()) return;
        const auto hoja = libro_.AgregarHoja(hojaDeListas);
        for (const auto& [nombre, lista] : listas_) {
            for (std::size_t fila = 0; fila < lista.valores.size(); ++fila)
                libro_.Texto(hoja, fila, lista.columna, lista.valores[fila]);
        }
        libro_.Ocultar(hoja);
    }

    struct Lista {
        std::size_t columna;
        std::vector<std::string> valores;
    };
    const DisenoDeEntrada& diseno_;
    const Especificacion& especificacion_;
    const ClasesDeCampos& clases_;
    const std::filesystem::path& documento_;
    LibroNuevo libro_;
    std::map<std::string, Lista> listas_;
};

}  // namespace

void EscribirPlantilla(const DisenoDeEntrada& diseno, const Especificacion& especificacion, const ClasesDeCampos& clases,
                       const std::filesystem::path& documento, const std::filesystem::path& destino) {
    Plantilla(diseno, especificacion, clases, documento, destino).Escribir();
}

}  // namespace qor
