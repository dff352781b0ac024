#include "model/record_layout.h"

#include <algorithm>

#include "base/text.h"
#include "model/one_file.h"

namespace qor {

bool TieneIdentificador(std::string_view linea, std::string_view identificador) {
    return SinBlancosDetras(linea.substr(0, identificador.size())) == SinBlancosDetras(identificador);
}

DisenoDeRegistros::DisenoDeRegistros(const Especificacion& especificacion, const Opciones& opciones)
    : especificacion_(especificacion),
      opciones_(opciones),
      operaciones_(ActualizarOperaciones(especificacion, 0)),
      archivoUnico_(StepsSinArchivo(especificacion, opciones) && ContarStepLoops(especificacion) > 0) {}

bool DisenoDeRegistros::HayArchivo() const {
    return (opciones_.TablaCh == 0 || opciones_.ClienteOp) && !especificacion_.OrigenUsuario;
}

std::string_view DisenoDeRegistros::Identificador(int grupo) const {
    std::string_view identificadores = archivoUnico_ ? std::string_view(opciones_.Identificadores) : std::string_view();
    for (; grupo > 0; --grupo) identificadores = DespuesDe(identificadores, ',');
    return AntesDe(identificadores, ',');
}

bool DisenoDeRegistros::Pertenece(int filaDeArchivo, int grupo) const {
    const auto clase = operaciones_.ClaseCampoEnOperacion(filaDeArchivo, grupo == 0 ? 1 : grupo);
    return clase == ClaseCampo::Clave || clase == (grupo == 0 ? ClaseCampo::Ninguna : ClaseCampo::DelGrupo);
}

bool DisenoDeRegistros::EsClave(int filaDeArchivo, int grupo) const {
    return operaciones_.ClaseCampoEnOperacion(filaDeArchivo, grupo) == ClaseCampo::Clave;
}

DisenoDeRegistros::Sitio DisenoDeRegistros::SitioDe(int filaDeArchivo, int grupo) const {
    const auto ancho = [this](int f) {
        return static_cast<std::size_t>(std::max(0.0, Numero(especificacion_.TablaArchivo[static_cast<std::size_t>(f)].ancho)));
    };
    Sitio sitio{Identificador(grupo).size(), ancho(filaDeArchivo), 1};
    for (int f = 0; f < filaDeArchivo; ++f) {
        if (!Pertenece(f, grupo)) continue;
        sitio.columna += ancho(f);
        ++sitio.numero;
    }
    return sitio;
}

std::string_view DisenoDeRegistros::ValorEn(std::string_view linea, int filaDeArchivo, int grupo) const {
    const auto sitio = SitioDe(filaDeArchivo, grupo);
    if (!PorTabuladores()) {
        return Recortar(sitio.columna < linea.size() ? linea.substr(sitio.columna, sitio.ancho) : std::string_view());
    }
    for (std::size_t i = 1; i < sitio.numero; ++i) linea = DespuesDe(linea, '\t');
    return Recortar(AntesDe(linea, '\t'));
}

std::vector<int> DisenoDeRegistros::Claves(int grupo) const {
    std::vector<int> claves;
    const int filas = especificacion_.FilasArchivo();
    for (int f = 0; f < filas; ++f) {
        if (EsClave(f, grupo)) claves.push_back(f);
    }
    return claves;
}

}  // namespace qor
