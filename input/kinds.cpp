#include "input/kinds.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "input/value_checks.h"
#include "input/value_pattern.h"

namespace qor {

namespace {

[[noreturn]] void Rechazar(std::size_t linea, const std::string& motivo) {
    throw FalloDeEjecucion("line " + std::to_string(linea) + ": " + motivo);
}

// In the place of the name of a field: the comment stands below the last one.
constexpr const char* alFinal = "\n";

std::string_view SinBlancosAlrededor(std::string_view texto) {
    const auto primero = texto.find_first_not_of(" \t");
    if (primero == std::string_view::npos) return {};
    return texto.substr(primero, texto.find_last_not_of(" \t") - primero + 1);
}

// Takes the first word off a text, and the blanks behind it.
std::string_view TomarPalabra(std::string_view& texto) {
    const auto palabra = texto.substr(0, texto.find_first_of(" \t"));
    texto = SinBlancosAlrededor(texto.substr(palabra.size()));
    return palabra;
}

// The same for a name, which can stand between quotes.
std::string_view TomarNombre(std::string_view& texto, std::size_t linea) {
    if (!texto.starts_with('"')) return TomarPalabra(texto);
    const auto fin = texto.find('"', 1);
    if (fin == std::string_view::npos) Rechazar(linea, "the name of the field has no second quote");
    const auto nombre = texto.substr(1, fin - 1);
    texto = SinBlancosAlrededor(texto.substr(fin + 1));
    return nombre;
}

std::string NombreEscrito(const std::string& campo) {
    const bool conComillas = campo.starts_with('#') || Contiene(campo, " ") || Contiene(campo, "\t");
    return conComillas ? '"' + campo + '"' : campo;
}

bool ConTipo(const ClaseDeCampo& clase) { return clase.tipo != ClaseDeCampo::Tipo::Ninguno; }

// A statement of a field's kind, behind its name.
void LeerClase(ClaseDeCampo& clase, std::string_view palabra, std::string_view resto, std::size_t linea, const std::string& campo) {
    const auto rechazar = [&](const std::string& motivo) { Rechazar(linea, AUtf8(campo) + ": " + motivo); };
    const auto unaVez = [&](bool yaDicho) {
        if (yaDicho)
            rechazar("\"" + std::string(palabra) + "\" or what stands in its place was said of the field already; once is allowed");
    };
    if (palabra == "required") {
        unaVez(clase.obligatorio);
        if (!resto.empty()) rechazar("something stands behind \"required\", where nothing is allowed");
        clase.obligatorio = true;
    } else if (palabra == "number") {
        unaVez(ConTipo(clase));
        if (resto != "." && resto != ",") rechazar(R"(behind "number" stands its decimal sign, "." or ",")");
        clase.tipo = ClaseDeCampo::Tipo::Numero;
        clase.decimal = resto.front();
    } else if (palabra == "date") {
        unaVez(ConTipo(clase));
        if (!FormatoDeFecha::Leer(resto)) {
            rechazar("\"" + AUtf8(resto) + "\" is no form of a date; it has DD, MM and YY or YYYY, each once, such as DD.MM.YYYY");
        }
        clase.tipo = ClaseDeCampo::Tipo::Fecha;
        clase.formato = resto;
    } else if (palabra == "pattern") {
        unaVez(!clase.patron.empty());
        if (resto.empty()) rechazar("behind \"pattern\" stands a regular expression");
        try {
            PatronDeValor{resto};
        } catch (const FalloDeEjecucion& fallo) {
            rechazar(std::string("the pattern is no regular expression that is allowed: ") + fallo.what());
        }
        clase.patron = resto;
    } else if (palabra == "list") {
        unaVez(!clase.lista.empty());
        if (resto.empty()) rechazar("behind \"list\" stands the name of a file of values, relative to the document");
        clase.lista = resto;
    } else {
        rechazar((palabra.empty() ? "nothing stands behind the name" : "\"" + AUtf8(palabra) + "\" says nothing of a field") +
                 R"(; allowed are "required", "number" with "." or ",", "date" with its form, "pattern" and "list")");
    }
}

std::string Sentencias(const std::string& campo, const ClaseDeCampo& clase) {
    std::string texto;
    const auto agregar = [&](std::string_view palabra, std::string_view resto) {
        texto.append(campo).append(" ").append(palabra).append(resto.empty() ? "" : " ").append(resto).append("\n");
    };
    if (clase.obligatorio) agregar("required", {});
    if (clase.tipo == ClaseDeCampo::Tipo::Numero) agregar("number", std::string_view(&clase.decimal, 1));
    if (clase.tipo == ClaseDeCampo::Tipo::Fecha) agregar("date", clase.formato);
    if (!clase.patron.empty()) agregar("pattern", clase.patron);
    if (!clase.lista.empty()) agregar("list", clase.lista);
    return texto;
}

}  // namespace

ClasesDeCampos ClasesDeCampos::Leer(std::string_view texto) {
    ClasesDeCampos clases;
    constexpr std::string_view marcaDeOrden = "\xEF\xBB\xBF";
    if (texto.starts_with(marcaDeOrden)) texto.remove_prefix(marcaDeOrden.size());
    std::string comentario;
    std::size_t numero = 0;
    for (const auto enUtf8 : PartirEnLineas(texto)) {
        ++numero;
        const auto leida = DesdeUtf8(enUtf8);
        if (!leida) Rechazar(numero, "no UTF-8, or a character outside windows-1252; the file has to be in UTF-8");
        auto resto = SinBlancosAlrededor(*leida);
        if (resto.starts_with('#')) {
            comentario += *leida + '\n';
            continue;
        }
        if (resto.empty()) {
            // Only the beginning of the file is parted from what follows.
            if (!comentario.empty() && clases.clases_.empty()) {
                clases.comentarios_.push_back({{}, std::exchange(comentario, {}) + '\n'});
            }
            continue;
        }
        const auto campo = Mayusculas(Recortar(TomarNombre(resto, numero)));
        if (campo.empty()) Rechazar(numero, "the name of the field is blank, and a statement begins with it");
        if (!comentario.empty()) clases.comentarios_.push_back({campo, std::exchange(comentario, {})});
        const auto palabra = TomarPalabra(resto);
        LeerClase(clases.clases_[campo], palabra, resto, numero, campo);
        auto& lineas = clases.lineas_[campo];
        if (lineas.primera == 0) lineas.primera = numero;
        if (palabra == "list") lineas.lista = numero;
    }
    if (!comentario.empty()) clases.comentarios_.push_back({alFinal, std::move(comentario)});
    return clases;
}

std::filesystem::path ClasesDeCampos::ArchivoDe(const std::filesystem::path& documento) {
    return std::filesystem::path(documento).replace_extension(".checks");
}

ClasesDeCampos ClasesDeCampos::DeDocumento(const std::filesystem::path& documento) {
    const auto ruta = ArchivoDe(documento);
    if (!Existe(ruta)) return {};
    const auto texto = LeerArchivo(ruta);
    try {
        auto clases = Leer(texto);
        clases.origen_ = ruta.filename().string();
        return clases;
    } catch (const FalloDeEjecucion& fallo) {
        throw FalloDeArchivo(fallo.what(), ruta);
    }
}

ClasesDeCampos::Lineas ClasesDeCampos::LineasDe(std::string_view campo) const {
    const auto lugar = lineas_.find(campo);
    return lugar == lineas_.end() ? Lineas{} : lugar->second;
}

const ClaseDeCampo* ClasesDeCampos::Buscar(std::string_view campo) const {
    const auto lugar = clases_.find(Mayusculas(Recortar(campo)));
    return lugar == clases_.end() ? nullptr : &lugar->second;
}

void ClasesDeCampos::Poner(const std::string& campo, ClaseDeCampo clase) {
    const auto nombre = Mayusculas(Recortar(campo));
    if (clase.Vacia()) {
        clases_.erase(nombre);
    } else {
        clases_[nombre] = std::move(clase);
    }
}

std::string ClasesDeCampos::Texto(const std::vector<std::string>& orden) const {
    std::vector<std::string> campos;
    const auto agregar = [&](const std::string& campo) {
        if (clases_.contains(campo) && std::find(campos.begin(), campos.end(), campo) == campos.end()) campos.push_back(campo);
    };
    for (const auto& campo : orden) agregar(Mayusculas(Recortar(campo)));
    for (const auto& [campo, clase] : clases_) agregar(campo);

    std::string texto;
    const auto comentar = [&](const auto& es) {
        for (const auto& comentario : comentarios_) {
            if (es(comentario.campo)) texto += comentario.texto;
        }
    };
    comentar([&](const std::string& campo) { return campo.empty(); });
    comentar([&](const std::string& campo) { return !campo.empty() && campo != alFinal && !clases_.contains(campo); });
    for (const auto& campo : campos) {
        comentar([&](const std::string& otro) { return otro == campo; });
        texto += Sentencias(NombreEscrito(campo), clases_.at(campo));
    }
    comentar([&](const std::string& campo) { return campo == alFinal; });
    return AUtf8(texto);
}

}  // namespace qor
