#include "bapi/insertion.h"

#include <algorithm>
#include <array>

#include "bapi/catalogue.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "model/cells.h"
#include "model/declarations.h"
#include "model/first_lines.h"

namespace qor {

namespace {

constexpr const char* finDeLinea = "\r\n";
constexpr const char* reglaDeComentario = "*---------------------------------------------------------------------*";
// A table parameter is a step-loop: one new line on each record.
constexpr const char* marcasDeTabla = "!1 1!2!30!4!50!61!7";

// The end of an insertion in the middle of the file; the view has shown why.
struct Parada {};

struct Parametro {
    std::string nombre;
    bool opcional = false;
    char clase = ' ';  // I, E or T
    std::string tipo;

    bool EsTabla() const { return clase == 'T'; }
    bool EsReturn() const { return nombre == "RETURN"; }
    // A type made of table, "-" and field; else the type is a structure, whose fields follow.
    bool EsEscalar() const { return Contiene(tipo, "-"); }
};

// Text that stands behind what is there, two line breaks apart.
void Separar(std::string& texto) {
    if (EstaEnBlanco(texto)) {
        texto.clear();
    } else {
        texto += "\r\n\r\n";
    }
}

// The name for a parameter's variable: the parameter's own, with a number behind it where that name has another type.
struct VariableBAPI {
    std::string nombre;
    bool declarar = false;  // else it exists with this type
};

bool VariableConOtroTipo(std::string_view variables, const std::string& nombre, const std::string& tipo, char clase) {
    if (clase == 'T') return !HayDataConTipo(variables, nombre, tipo, {"\r\n      OCCURS", " OCCURS"});
    return !HayDataConTipo(variables, nombre, tipo, {",", "."});
}

VariableBAPI NombreVariableBAPI(std::string_view VariablesGlobales, const std::string& raiz, const std::string& tipo, char clase) {
    for (int n = 0;; ++n) {
        const std::string candidato = n == 0 ? raiz : raiz + std::to_string(n);
        if (!HayData(VariablesGlobales, AntesDe(candidato, '-'))) return {candidato, true};
        if (!VariableConOtroTipo(VariablesGlobales, candidato, tipo, clase)) return {candidato, false};
        // A number behind the "-" changes nothing of what is declared in front of it.
        if (Contiene(raiz, "-")) throw FalloDeEjecucion("no free name for the parameter " + raiz);
    }
}

// A name for a file field that no row of the program side has yet.
std::string CampoUnico(const Especificacion& especificacion, const std::string& nombre) {
    const auto& tabla = especificacion.TablaTransaccion;
    for (int n = 0;; ++n) {
        const std::string candidato = n == 0 ? nombre : nombre + std::to_string(n);
        bool usado = false;
        for (const auto& fila : tabla) {
            if (fila.SinNombres()) break;
            if (Recortar(fila.valor) == candidato) usado = true;
        }
        if (!usado) return candidato;
    }
}

class Insercion {
public:
    Insercion(Documento& documento, const std::string& nombre, int indice, int fila, bool todos, const TextosIdioma& textos,
              Vista& vista)
        : documento_(documento),
          textos_(textos),
          vista_(vista),
          nombre_(nombre),
          indice_(indice),
          fila_(fila),
          TodosLosCampos_(todos) {}

    void Leer(std::string_view catalogo) {
        for (const auto linea : PartirEnLineas(catalogo)) {
            if (fila_ > ultimaFila) break;
            const auto registro = LeerRegistro(linea);
            if (registro.tipo == '2') {
                if (abierta_) break;
                abierta_ = Recortar(registro.contenido) == nombre_;
                if (abierta_) Abrir();
            }
            if (!abierta_) continue;
            if (registro.tipo == '4') LeerParametro(registro.contenido);
            if (registro.tipo == '5') LeerCampo(std::string(Recortar(registro.contenido)));
        }
        if (abierta_ && ConDefinicion()) Llamada().replace(Llamada().size() - 2, 2, ".");
    }

private:
    bool ConDefinicion() const { return indice_ != -1; }
    std::string& Variables() { return documento_.especificacion.VariablesGlobales; }
    std::string& Llamada() { return documento_.especificacion.TablaBAPIs[indice_].llamada; }

    void Abrir() {
        if (ConDefinicion()) {
            Separar(Variables());
            Variables() += std::string(reglaDeComentario) + finDeLinea + "*   " + nombre_ + " STRUCTURES" +
                           Blancos(55 - static_cast<std::ptrdiff_t>(nombre_.size())) + "*" + finDeLinea + reglaDeComentario +
                           finDeLinea + finDeLinea;
            Separar(Llamada());
            Llamada() += "CALL FUNCTION '" + nombre_ + "'" + finDeLinea;
        }
        if (fila_ != -1) PonerFila(fila_, {"BAPI", nombre_, "", "", ""});
    }

    void LeerParametro(std::string_view contenido) {
        std::array<std::string, 4> partes;
        for (auto& parte : partes) {
            parte = Recortar(AntesDe(contenido, ':'));
            contenido = DespuesDe(contenido, ':');
        }
        if (partes[2] != "I" && partes[2] != "E" && partes[2] != "T") {
            vista_.Advertir(Componer(textos_, {401}));
            throw Parada{};
        }
        parametro_ = {partes[0], !partes[1].empty(), partes[2][0], partes[3]};
        std::string actual;
        if (ConDefinicion()) actual = Definir();
        DarCampos_ = parametro_.clase != 'E' && fila_ != -1 && fila_ + 1 <= ultimaFila;
        if (!DarCampos_) return;
        PrimerCampo_ = parametro_.EsTabla();
        if (!parametro_.EsEscalar()) {
            Prefijo_ = Exigir(ConDefinicion() ? actual : BuscarParametroEnLlamada());
        } else if (SePide()) {
            const std::string izquierda = Exigir(BuscarParametroEnLlamada());
            PonerFila(++fila_, {"", "", izquierda, Mayusculas(parametro_.nombre), ""});
        }
    }

    bool SePide() const { return !parametro_.opcional || TodosLosCampos_; }

    // Declares the parameter's variable where it is new, and passes it in the call. The answer is the variable.
    std::string Definir() {
        const auto& p = parametro_;
        const auto variable = NombreVariableBAPI(Variables(), p.nombre, p.tipo, p.clase);
        if (variable.declarar && !variable.nombre.empty()) {
            Variables() += "DATA: " + variable.nombre + " LIKE " + p.tipo;
            Variables() += p.EsTabla() ? std::string(finDeLinea) + "      OCCURS 0 WITH HEADER LINE." : std::string(".");
            Variables() += finDeLinea;
        }
        // The caller exports what the BAPI imports.
        const std::string_view seccion = p.clase == 'I' ? "EXPORTING" : p.clase == 'E' ? "IMPORTING" : "TABLES";
        bool& falta = p.clase == 'I' ? FaltaExporting_ : p.clase == 'E' ? FaltaImporting_ : FaltaTables_;
        if (falta) Llamada().append("     ").append(seccion).append(finDeLinea);
        falta = false;
        Llamada() += "       " + p.nombre + " = " + variable.nombre + finDeLinea;
        return variable.nombre;
    }

    // The first line of the call that holds the name and " = ", so it may find a longer name; this stays so.
    std::string BuscarParametroEnLlamada() {
        const std::string buscado = parametro_.nombre + " = ";
        for (const auto& fila : documento_.especificacion.TablaBAPIs) {
            if (fila.nombre.empty()) break;
            if (Recortar(fila.nombre) != nombre_) continue;
            for (const auto& linea : PartirLineas(fila.llamada, 71)) {
                const auto lugar = Posicion(linea, buscado);
                if (lugar == 0) continue;
                auto resto = Recortar(TramoDesde(linea, lugar + buscado.size()));
                if (resto.ends_with('.')) resto.remove_suffix(1);
                return std::string(resto);
            }
            break;
        }
        return {};
    }

    // What the call passes for a parameter; without it the insertion can't go on.
    std::string Exigir(std::string pasado) {
        if (!pasado.empty()) return pasado;
        vista_.Advertir(Componer(textos_, {394}));
        throw Parada{};
    }

    void LeerCampo(const std::string& campo) {
        if (!DarCampos_ || fila_ + 1 > ultimaFila || !SePide() || parametro_.EsReturn()) return;
        const std::string columna = Prefijo_ + "-" + campo + (parametro_.EsTabla() ? "(+)" : "");
        const std::string nombre = Mayusculas(campo);
        PonerFila(fila_ + 1, {"", "", columna, parametro_.EsTabla() ? CampoUnico(documento_.especificacion, nombre) : nombre,
                              PrimerCampo_ ? marcasDeTabla : ""});
        PrimerCampo_ = false;
        ++fila_;
    }

    void PonerFila(int fila, FilaDeTransaccion celdas) {
        auto& destino = documento_.especificacion.TablaTransaccion[fila];
        const int primera = fila < 5 ? 0 : std::min(fila - 5, ultimaFila - lineasTransaccion + 1);
        documento_.GuardarDeshacer({RegistroDeshacer::Paso::Cambio, fila - primera, primera, destino});
        destino = std::move(celdas);
    }

    Documento& documento_;
    const TextosIdioma& textos_;
    Vista& vista_;
    const std::string& nombre_;
    int indice_;
    int fila_;  // the last row written
    bool TodosLosCampos_;
    bool abierta_ = false;
    bool FaltaExporting_ = true;
    bool FaltaImporting_ = true;
    bool FaltaTables_ = true;
    Parametro parametro_;
    bool DarCampos_ = false;
    bool PrimerCampo_ = false;
    std::string Prefijo_;
};

// Asks for the parameters and reads the catalogue; `indice` and `fila` are those of InsertarDeTexto.
ResultadoInsercion InsertarBAPI(Documento& documento, const std::filesystem::path& ArchivoBAPI, const std::string& nombre,
                                int indice, int fila, const PreguntaDeCampos& preguntar, const TextosIdioma& textos, Vista& vista) {
    bool todos = true;
    if (fila != -1) {
        const auto respuesta = preguntar();
        if (!respuesta) return ResultadoInsercion::Cancelado;
        todos = *respuesta;
    }
    if (indice > ultimaFilaBAPIs) throw FalloDeEjecucion("the specification has no room for another BAPI");
    try {
        const std::string catalogo = LeerArchivo(ArchivoBAPI, limiteDeCatalogo);
        if (indice != -1) documento.especificacion.TablaBAPIs[indice].nombre = nombre;
        return InsertarDeTexto(documento, catalogo, nombre, indice, fila, todos, textos, vista);
    } catch (const FalloDeEjecucion& fallo) {
        vista.Advertir(SobreArchivo(ConDetalle(Componer(textos, {382}), fallo), ArchivoBAPI));
        return ResultadoInsercion::Detenido;
    }
}

}  // namespace

ResultadoInsercion InsertarDeTexto(Documento& documento, std::string_view catalogo, const std::string& nombre, int indice, int fila,
                                   bool todos, const TextosIdioma& textos, Vista& vista) {
    documento.Cambiar();
    try {
        Insercion(documento, nombre, indice, fila, todos, textos, vista).Leer(catalogo);
        return ResultadoInsercion::Hecho;
    } catch (const Parada&) {
        return ResultadoInsercion::Detenido;
    }
}

ResultadoInsercion ElegirBAPI(Documento& documento, const std::filesystem::path& ArchivoBAPI, const std::string& nombre,
                              bool soloDefinicion, int fila, const PreguntaDeCampos& preguntar, const TextosIdioma& textos,
                              Vista& vista) {
    const auto& bapis = documento.especificacion.TablaBAPIs;
    const int indice = documento.especificacion.FilasBAPIs();
    const bool existe =
        std::any_of(bapis.begin(), bapis.begin() + indice, [&](const FilaDeBAPI& bapi) { return Recortar(bapi.nombre) == nombre; });
    if (!existe) return InsertarBAPI(documento, ArchivoBAPI, nombre, indice, soloDefinicion ? -1 : fila, preguntar, textos, vista);
    if (soloDefinicion) {
        vista.Advertir(Componer(textos, {389}));
        return ResultadoInsercion::Detenido;
    }
    if (vista.Preguntar(Componer(textos, {383}), Botones::SiNo) != Respuesta::Si) return ResultadoInsercion::Cancelado;
    return InsertarBAPI(documento, ArchivoBAPI, nombre, -1, fila, preguntar, textos, vista);
}

}  // namespace qor
