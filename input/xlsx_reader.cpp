#include "input/xlsx_reader.h"

#include <algorithm>
#include <pugixml.hpp>
#include <string_view>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "input/sheet_date.h"
#include "input/sheet_number.h"
#include "input/xlsx_elements.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeFila = std::size_t{16} << 20;
constexpr std::uint64_t maximoDeFilas = 1048576;
constexpr std::size_t maximoDeColumnas = 16384;

pugi::xml_node Hijo(const pugi::xml_node& nodo, std::string_view nombre) {
    for (const auto& hijo : nodo.children()) {
        if (NombreLocal(hijo) == nombre) return hijo;
    }
    return {};
}

// The column of a reference such as "AB12", from 0; the limit where there is none.
std::size_t ColumnaDe(std::string_view referencia) {
    std::size_t columna = 0;
    for (const char c : referencia) {
        if (c < 'A' || c > 'Z' || columna > maximoDeColumnas) break;
        columna = columna * 26 + static_cast<std::size_t>(c - 'A' + 1);
    }
    return columna == 0 || columna > maximoDeColumnas ? maximoDeColumnas : columna - 1;
}

// The id of a relation: the attribute "id" with whatever prefix.
std::string_view IdDeRelacion(const pugi::xml_node& nodo) {
    for (const auto& atributo : nodo.attributes()) {
        if (std::string_view(atributo.name()).ends_with(":id")) return atributo.value();
    }
    return {};
}

}  // namespace

// The rows of a sheet.
class LibroXlsx::Filas : public FuenteDeFilas {
public:
    Filas(LibroXlsx& libro, const Hoja& hoja)
        : libro_(libro),
          hoja_(hoja.nombre),
          parte_(libro.paquete_.Abrir(hoja.parte)),
          elementos_([this](char* donde, std::size_t cuanto) { return parte_->Leer(donde, cuanto); },
                     [this](const std::string& motivo) { parte_->Fallar(motivo); }, "row", maximoDeFila) {}

    bool Siguiente(FilaDeHoja& fila) override {
        std::size_t largo = 0;
        char* const elemento = elementos_.Siguiente(largo);
        if (elemento == nullptr) return false;
        if (!xml_.load_buffer_inplace(elemento, largo, pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8)) {
            parte_->Fallar("a row is no XML");
        }
        const auto nodo = xml_.document_element();
        const auto dicho = nodo.attribute("r");
        const std::uint64_t numero = dicho.empty() ? numero_ + 1 : dicho.as_ullong();
        if (numero <= numero_ || numero > maximoDeFilas) parte_->Fallar("its rows are not in their order");
        fila.numero = numero_ = numero;
        for (auto& celda : fila.celdas) celda.Vaciar();
        std::size_t columna = 0;
        for (const auto& hijo : nodo.children()) {
            if (NombreLocal(hijo) != "c") continue;
            if (const auto referencia = hijo.attribute("r")) {
                const auto dicha = ColumnaDe(referencia.value());
                if (dicha < columna) Fallar(referencia.value(), "two cells have one place, or are not in their order");
                columna = dicha;
            }
            if (columna >= maximoDeColumnas) Fallar(hijo.attribute("r").value(), "a cell has no column");
            if (columna >= fila.celdas.size()) fila.celdas.resize(columna + 1);
            LeerCelda(hijo, fila.celdas[columna++]);
        }
        return true;
    }

private:
    [[noreturn]] void Fallar(std::string_view celda, std::string_view motivo) const {
        std::string donde = "the sheet " + hoja_ + ", ";
        donde += celda.empty() ? "row " + std::to_string(numero_) : "cell " + std::string(celda);
        parte_->Fallar(donde.append(": ").append(motivo));
    }

    void LeerCelda(const pugi::xml_node& nodo, CeldaDeHoja& celda) {
        using Clase = CeldaDeHoja::Clase;
        const std::string_view tipo = nodo.attribute("t").value();
        if (tipo == "inlineStr") {
            celda.PonerUtf8(TextoDeElemento(Hijo(nodo, "is")));
            return;
        }
        const auto valor = Hijo(nodo, "v");
        const std::string_view texto = valor.child_value();
        if (!valor || (texto.empty() && tipo != "str")) {
            celda.clase = Hijo(nodo, "f").empty() ? Clase::Vacia : Clase::SinValor;
        } else if (tipo == "s") {
            double numero = -1;
            const bool bien = LeerNumeroDeCelda(Recortar(texto), numero) && numero >= 0 && libro_.Textos() != nullptr &&
                              libro_.Textos()->Texto(static_cast<std::uint64_t>(numero), utf8_);
            if (!bien) Fallar(nodo.attribute("r").value(), "its shared string is missing");
            celda.PonerUtf8(utf8_);
        } else if (tipo == "str") {
            // What stands there is escaped as any other string.
            utf8_.clear();
            AgregarTextoDeCelda(utf8_, texto);
            celda.PonerUtf8(utf8_);
        } else if (tipo == "b") {
            celda.numero = Recortar(texto) == "1" || Recortar(texto) == "true" ? 1 : 0;
            celda.clase = Clase::Booleano;
        } else if (tipo == "e" || tipo == "d") {
            celda.clase = tipo == "e" ? Clase::Error : Clase::Fecha;
            celda.texto = Recortar(texto);
        } else {
            LeerNumero(nodo, texto, celda);
        }
    }

    void LeerNumero(const pugi::xml_node& nodo, std::string_view texto, CeldaDeHoja& celda) const {
        celda.texto = Recortar(texto);
        if (!LeerNumeroDeCelda(celda.texto, celda.numero)) {
            celda.clase = CeldaDeHoja::Clase::Ilegible;
            return;
        }
        celda.clase = CeldaDeHoja::Clase::Numero;
        celda.formato = libro_.Formato(nodo.attribute("s").as_uint());
        if (libro_.desde1904_ && celda.formato != nullptr && celda.formato->TieneDia()) celda.numero += diasEntreSistemas;
    }

    LibroXlsx& libro_;
    std::string hoja_;
    std::unique_ptr<ParteXlsx> parte_;
    PartidorDeElementos elementos_;
    pugi::xml_document xml_;
    std::string utf8_;
    std::uint64_t numero_ = 0;
};

LibroXlsx::LibroXlsx(const std::filesystem::path& ruta) : paquete_(ruta) { LeerLibro(); }

LibroXlsx::~LibroXlsx() = default;

void LibroXlsx::LeerLibro() {
    const auto cargar = [this](pugi::xml_document& xml, const std::string& parte) {
        const auto texto = paquete_.LeerTodo(parte);
        if (!xml.load_buffer(texto.data(), texto.size())) paquete_.Fallar("the part " + parte + " is no XML");
    };
    if (paquete_.Tiene("content.xml") && paquete_.Tiene("mimetype")) paquete_.OtroFormato("an OpenDocument file");
    std::string libro;
    for (const auto& relacion : paquete_.Relaciones("")) {
        if (relacion.clase == "officeDocument") libro = relacion.parte;
    }
    if (libro.ends_with(".bin")) paquete_.OtroFormato("a binary workbook");
    if (libro.empty() || !paquete_.Tiene(libro)) paquete_.OtroFormato("a zip archive without a workbook");
    pugi::xml_document xml;
    cargar(xml, libro);
    if (NombreLocal(xml.document_element()) != "workbook") paquete_.OtroFormato("a document of another kind");

    std::map<std::string, std::string, std::less<>> hojas;
    for (const auto& relacion : paquete_.Relaciones(libro)) {
        if (relacion.clase == "worksheet") hojas[relacion.id] = relacion.parte;
        if (relacion.clase == "sharedStrings") parteDeTextos_ = relacion.parte;
        if (relacion.clase == "styles") LeerEstilos(relacion.parte);
    }
    const auto raiz = xml.document_element();
    desde1904_ = Hijo(raiz, "workbookPr").attribute("date1904").as_bool();
    for (const auto& nodo : Hijo(raiz, "sheets").children()) {
        const auto parte = hojas.find(IdDeRelacion(nodo));
        if (parte == hojas.end()) continue;  // a chart
        const std::string_view estado = nodo.attribute("state").value();
        hojas_.push_back({nodo.attribute("name").value(), !estado.empty() && estado != "visible", parte->second});
    }
    if (hojas_.empty()) paquete_.Fallar("there is no sheet with cells");
}

void LibroXlsx::LeerEstilos(const std::string& parte) {
    if (!paquete_.Tiene(parte)) return;
    const auto texto = paquete_.LeerTodo(parte);
    pugi::xml_document xml;
    if (!xml.load_buffer(texto.data(), texto.size())) paquete_.Fallar("the part " + parte + " is no XML");
    const auto raiz = xml.document_element();
    for (const auto& nodo : Hijo(raiz, "numFmts").children()) {
        formatos_.emplace(nodo.attribute("numFmtId").as_int(), FormatoDeNumero(nodo.attribute("formatCode").value()));
    }
    for (const auto& nodo : Hijo(raiz, "cellXfs").children()) {
        if (NombreLocal(nodo) != "xf") continue;
        const int numero = nodo.attribute("numFmtId").as_int();
        if (numero == 0) {
            estilos_.push_back(nullptr);
            continue;
        }
        const auto lugar = formatos_.find(numero);
        estilos_.push_back(
            &(lugar != formatos_.end() ? lugar : formatos_.emplace(numero, FormatoDeNumero::Fijo(numero)).first)->second);
    }
}

const FormatoDeNumero* LibroXlsx::Formato(unsigned estilo) const { return estilo < estilos_.size() ? estilos_[estilo] : nullptr; }

TextosCompartidos* LibroXlsx::Textos() {
    if (!textos_ && !parteDeTextos_.empty()) textos_ = std::make_unique<TextosCompartidos>(*paquete_.Abrir(parteDeTextos_));
    return textos_.get();
}

std::unique_ptr<FuenteDeFilas> LibroXlsx::Abrir(const Hoja& hoja) { return std::make_unique<Filas>(*this, hoja); }

}  // namespace qor
