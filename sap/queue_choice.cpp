#include "sap/queue_choice.h"

#include <fstream>

#include "base/busy_pointer.h"
#include "base/paths.h"
#include "base/text.h"
#include "sap/temporary_file.h"

namespace qor {

namespace {

constexpr std::size_t anchoDePieza = 62;
constexpr std::size_t anchoDeUltimaPieza = 61;  // four whole pieces and this are the 309 characters of a record

std::string CeldaDeGrilla(std::string_view fila, std::size_t inicio, std::ptrdiff_t ancho) {
    return std::string(Recortar(Tramo(fila, inicio, ancho)));
}

bool EscribirRegistros(const std::filesystem::path& ruta, const std::string& registros) {
    std::ofstream archivo(ruta, std::ios::binary | std::ios::trunc);
    archivo << registros;
    archivo.close();
    return static_cast<bool>(archivo);
}

std::optional<Importacion> ElegirYLeer(const Especificacion& especificacion, const DialogoImport& FormImport, bool EsGrabacion,
                                       const TextosIdioma& textos, Vista& vista) {
    FormularioImport formulario;
    formulario.EsGrabacion = EsGrabacion;
    FormImport(formulario);
    if (formulario.ArchivoImportado.empty()) return std::nullopt;
    auto importacion = LeerImportacion(especificacion, formulario.ArchivoImportado, textos, vista);
    BorrarTemporal(formulario.ArchivoImportado);
    return importacion;
}

FilaDeGrilla FilaDeCola(std::string_view fila) {
    return {"",
            CeldaDeGrilla(fila, 59, 3),
            CeldaDeGrilla(fila, 1, 12),
            CeldaDeGrilla(fila, 33, 12),
            CeldaDeGrilla(fila, 45, 8),
            CeldaDeGrilla(fila, 53, 6),
            CeldaDeGrilla(fila, 13, 20)};
}

}  // namespace

bool LlenarGrilla(FormularioImport& formulario, SesionSAP& sesion, const TextosIdioma& textos, Vista& vista) {
    const ConPunteroOcupado puntero(vista);
    const auto ListaColas = ListarColas(sesion, formulario.Tipo());
    if (!ListaColas) {
        vista.Advertir(ConMotivo(sesion, Componer(textos, {415})));
        return false;
    }
    formulario.Grilla.clear();
    for (const auto& fila : *ListaColas) formulario.Grilla.push_back(FilaDeCola(fila));
    return true;
}

void ActivarFila(FormularioImport& formulario, const std::string& qid, SesionSAP& sesion, Vista& vista) {
    if (qid.empty()) return;
    const ConPunteroOcupado puntero(vista);
    const auto DatosCola = LeerCola(sesion, qid, formulario.Tipo());
    if (!DatosCola) {
        if (!sesion.Conectado || TieneControl(qid)) vista.Advertir(MensajeLiteral(sesion.Motivo));
        return;
    }
    const auto archivo = CrearTemporal(sesion);
    if (EscribirRegistros(archivo, RegistrosDeCola(*DatosCola))) {
        formulario.ArchivoImportado = archivo;
    } else {
        BorrarTemporal(archivo);
    }
}

std::string RegistrosDeCola(const FilasDeLista& DatosCola) {
    std::string registros;
    std::string registro;
    for (const auto& fila : DatosCola) {
        std::string pieza(Tramo(fila, 3, anchoDePieza));
        pieza.resize(anchoDePieza, ' ');
        switch (fila.empty() ? ' ' : fila.front()) {
            case '1': registro = pieza; break;
            case '2':
            case '3':
            case '4': registro += pieza; break;
            case '5': registros += registro + pieza.substr(0, anchoDeUltimaPieza) + "\r\n"; break;
            default: break;
        }
    }
    return registros;
}

std::optional<Importacion> ButtonOnlineSHDB(const Especificacion& especificacion, const DialogoImport& FormImport,
                                            const TextosIdioma& textos, Vista& vista) {
    return ElegirYLeer(especificacion, FormImport, true, textos, vista);
}

std::optional<Importacion> ButtonOnlineSM35(const Especificacion& especificacion, const DialogoImport& FormImport,
                                            const TextosIdioma& textos, Vista& vista) {
    return ElegirYLeer(especificacion, FormImport, false, textos, vista);
}

}  // namespace qor
