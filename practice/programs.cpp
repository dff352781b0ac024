#include "practice/programs.h"

#include "base/text.h"
#include "practice/moment.h"

namespace qor {

namespace {

constexpr std::size_t largoDeNombre = 40;

}  // namespace

bool ProgramasDePractica::Insertar(std::string_view nombre, std::span<const std::string> lineas) {
    const std::string clave = Mayusculas(Recortar(nombre));
    if (clave.empty() || clave.size() > largoDeNombre) return false;
    const auto momento = MomentoActual();
    std::string texto;
    for (const auto& linea : lineas) texto.append(linea).append("\n");
    base_.EmpezarUnidad();
    auto& poner = base_.LaConexion().Guardada("INSERT OR REPLACE INTO _qor_programs VALUES (?, ?, ?, ?, ?)");
    poner.LigarTexto(0, clave);
    poner.LigarTexto(1, usuarioDePractica);
    poner.LigarTexto(2, momento.fecha);
    poner.LigarTexto(3, momento.hora);
    poner.LigarBloque(4, texto);
    poner.Ejecutar();
    return true;
}

std::optional<ProgramaDePractica> ProgramasDePractica::Buscar(std::string_view nombre) {
    auto& leer = base_.LaConexion().Guardada("SELECT name, creator, date, time, source FROM _qor_programs WHERE name = ?");
    leer.LigarTexto(0, nombre);
    std::optional<ProgramaDePractica> programa;
    if (leer.Paso()) programa = {leer.Texto(0), leer.Texto(1), leer.Texto(2), leer.Texto(3), std::string(leer.Bytes(4))};
    leer.Reiniciar();
    return programa;
}

std::vector<ProgramaDePractica> ProgramasDePractica::Todos() {
    std::vector<ProgramaDePractica> programas;
    const auto leer = base_.LaConexion().Preparar("SELECT name, creator, date, time FROM _qor_programs ORDER BY name");
    while (leer->Paso()) programas.push_back({leer->Texto(0), leer->Texto(1), leer->Texto(2), leer->Texto(3), {}});
    return programas;
}

}  // namespace qor
