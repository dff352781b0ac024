#include "print/specification_print.h"

#include "base/busy_pointer.h"
#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/words.h"
#include "generator/checks.h"
#include "model/cells.h"
#include "model/gaps.h"
#include "print/page.h"

namespace qor {

namespace {

constexpr std::size_t largoSeparadora = 90;
constexpr std::size_t anchoDeTexto = 120;
constexpr std::size_t largoDeNota = 70;

class Impresion {
public:
    Impresion(const PedidoDeGeneracion& pedido, const Analisis& analisis, Dispositivo& d)
        : especificacion_(pedido.especificacion),
          opciones_(pedido.opciones),
          analisis_(analisis),
          textos_(pedido.textos),
          nombre_(pedido.NombreDocumento),
          d_(d) {}

    void Imprimir() {
        ConfigurarImpresora(d_);
        Encabezado(d_, textos_.Texto(900));
        LineasVacias(d_, 2);
        ImprimirDatosGenerales();
        PonerTamano(d_, 10);
        LineaSeparadora(d_, largoSeparadora);
        LineasVacias(d_, 1);
        Controlar();
        ImprimirRegistroPrincipal();
        for (int n = 1; analisis_.operaciones.ContarCamposOperacion(n) > 0; ++n) ImprimirGrupo(n);
        ImprimirProgramas();
        ImprimirNotas();
        d_.Terminar();
    }

private:
    void Controlar() { ControlarPagina(d_, textos_); }

    void Par(int mensaje, const std::string& valor) {
        PonerNegrita(d_, true);
        d_.Item(textos_.Texto(mensaje));
        PonerNegrita(d_, false);
        Linea(d_, " " + valor);
    }

    void TextoLargo(int mensaje, const std::string& texto) {
        PonerNegrita(d_, true);
        Linea(d_, textos_.Texto(mensaje));
        PonerNegrita(d_, false);
        SPrint(d_, textos_, texto, anchoDeTexto);
    }

    void ImprimirDatosGenerales() {
        const auto& o = opciones_;
        PonerTamano(d_, 10);
        Par(921, nombre_.empty() ? "(" + textos_.Texto(922) + ")" : nombre_);
        Par(901, o.Functional);
        Par(902, o.Technical);
        Par(903, o.ModuleCombo);
        TextoLargo(904, o.Description);
        LineasVacias(d_, 1);
        TextoLargo(905, o.Notes);
        LineasVacias(d_, 2);
        Controlar();
        if (!analisis_.ArchivoUnico) return;
        const auto archivo = Recortar(o.ArchivoFuente);
        PonerNegrita(d_, true);
        d_.Item(textos_.Texto(925));
        PonerNegrita(d_, false);
        Linea(d_, archivo.empty() ? std::string() : " " + std::string(archivo));
        LineasVacias(d_, 1);
    }

    // Texts at their tabs, on one line.
    void Fila(std::initializer_list<std::pair<int, std::string_view>> celdas) {
        for (const auto& [columna, texto] : celdas) {
            d_.Tab(columna);
            d_.Item(texto);
        }
        d_.FinDeLinea();
    }

    void Titulos(std::initializer_list<std::pair<int, std::string_view>> celdas) {
        d_.PonerEnfasis(Enfasis::Titulo, true);
        Fila(celdas);
        d_.PonerEnfasis(Enfasis::Titulo, false);
        LineasVacias(d_, 1);
    }

    void TitulosDeRegistro() { Titulos({{2, textos_.Texto(907)}, {47, textos_.Texto(908)}, {60, textos_.Texto(909)}}); }

    void FilaDeIdentificador(int n) {
        if (!analisis_.ArchivoUnico) return;
        const std::string id(ObtenerIdentificador(opciones_.Identificadores, n));
        Fila({{2, textos_.Texto(927)}, {50, std::to_string(id.size())}, {60, "'" + id + "'"}});
    }

    void FilaDeCampo(int f) {
        const auto& fila = especificacion_.TablaArchivo[f];
        Controlar();
        Fila({{2, fila.campo}, {50, fila.ancho}, {60, std::string_view(fila.nota).substr(0, largoDeNota)}});
    }

    void ImprimirRegistroPrincipal() {
        Encabezado(d_, analisis_.ArchivoUnico ? textos_.Texto(923)
                                              : textos_.Texto(906) + " " + std::string(Recortar(opciones_.ArchivoFuente)));
        LineasVacias(d_, 1);
        TitulosDeRegistro();
        FilaDeIdentificador(0);
        const int filas = especificacion_.FilasArchivo();
        for (int f = 0; f < filas; ++f) {
            if (analisis_.operaciones.OperacionDeCampo(f) == 0) FilaDeCampo(f);
        }
        LineasVacias(d_, 2);
    }

    std::string TituloDeGrupo(int n) const {
        const std::string numero = " " + std::to_string(n);
        if (analisis_.ArchivoUnico) return textos_.Texto(924) + numero;
        const int cabeza = FilaDeStepLoop(especificacion_, n);
        return textos_.Texto(910) + numero + ": " + std::string(ExtraerMarca(especificacion_.TablaTransaccion[cabeza].nota, 2, 3));
    }

    void ImprimirGrupo(int n) {
        PonerNegrita(d_, true);
        LineaSeparadora(d_, largoSeparadora);
        LineasVacias(d_, 1);
        Controlar();
        Encabezado(d_, TituloDeGrupo(n));
        PonerNegrita(d_, false);
        TitulosDeRegistro();
        FilaDeIdentificador(n);
        const int filas = especificacion_.FilasArchivo();
        for (int f = 0; f < filas; ++f) {
            if (analisis_.operaciones.ClaseCampoEnOperacion(f, n) == ClaseCampo::Clave) FilaDeClave(f);
        }
        for (int f = 0; f < filas; ++f) {
            const bool esClave = analisis_.operaciones.ClaseCampoEnOperacion(f, n) == ClaseCampo::Clave;
            if (analisis_.operaciones.OperacionDeCampo(f) == n && !esClave) FilaDeCampo(f);
        }
        LineasVacias(d_, 3);
    }

    void FilaDeClave(int f) {
        const auto& fila = especificacion_.TablaArchivo[f];
        Controlar();
        d_.Tab(2);
        d_.PonerEnfasis(Enfasis::Clave, true);
        d_.Item(fila.campo);
        d_.PonerEnfasis(Enfasis::Clave, false);
        Fila({{50, fila.ancho}, {60, textos_.Texto(911)}});
    }

    void ImprimirOperacion(int mensaje, const std::string& codigo) {
        PonerNegrita(d_, true);
        Linea(d_, textos_.Texto(mensaje) + " " + codigo);
        PonerNegrita(d_, false);
        LineasVacias(d_, 1);
    }

    void ImprimirProgramas() {
        LineaSeparadora(d_, largoSeparadora);
        LineasVacias(d_, 1);
        Encabezado(d_, textos_.Texto(912));
        LineasVacias(d_, 1);
        for (int r = 0; r <= ultimaFila; ++r) {
            const auto& fila = especificacion_.TablaTransaccion[r];
            if (fila.SinNombres()) break;
            Controlar();
            if (fila.EsCabezaTransaccion()) {
                ImprimirOperacion(913, fila.dynpro);
                Titulos({{10, textos_.Texto(914)}, {30, textos_.Texto(915)}, {45, textos_.Texto(916)}, {100, textos_.Texto(907)}});
            } else if (fila.EsCabezaBAPI()) {
                ImprimirOperacion(926, fila.dynpro);
                Titulos({{45, textos_.Texto(916)}, {100, textos_.Texto(907)}});
            } else {
                Fila({{10, fila.programa}, {30, fila.dynpro}, {45, fila.campo}, {100, fila.valor}});
            }
        }
    }

    void ImprimirNotas() {
        LineasVacias(d_, 3);
        LineaSeparadora(d_, largoSeparadora);
        Controlar();
        Encabezado(d_, textos_.Texto(917));
        LineasVacias(d_, 2);
        for (int r = 0; r <= ultimaFila; ++r) {
            const auto& fila = especificacion_.TablaTransaccion[r];
            const std::string_view nota = std::string_view(fila.nota).substr(0, fila.nota.find("!1"));
            if (EstaEnBlanco(nota)) continue;
            Controlar();
            LineasVacias(d_, 1);
            PonerNegrita(d_, true);
            Linea(d_, textos_.Texto(918) + " " + Mayusculas(Recortar(fila.campo)));
            PonerNegrita(d_, false);
            Controlar();
            LineasVacias(d_, 1);
            SPrint(d_, textos_, nota, anchoDeTexto);
        }
    }

    const Especificacion& especificacion_;
    const Opciones& opciones_;
    const Analisis& analisis_;
    const TextosIdioma& textos_;
    const std::string& nombre_;  // of the document
    Dispositivo& d_;
};

// The end of the printing: what was printed, or the file that was written.
Mensaje MensajeDeImpreso(const Dispositivo& dispositivo, const TextosIdioma& textos) {
    const auto archivo = dispositivo.Archivo();
    if (archivo.empty()) return Componer(textos, {919});
    Mensaje mensaje = SobreArchivo(MensajeDePalabra(textos, palabra::SeEscribioElPDF), archivo);
    mensaje.escrito = archivo;
    return mensaje;
}

// A device whose file can't be written ends the printing with a message.
template <typename Accion>
bool ConAvisoDeFallo(Vista& vista, Accion accion) {
    try {
        return accion();
    } catch (const FalloDeArchivo& fallo) {
        vista.Advertir(ConDetalle(MensajeLiteral("The document can't be printed."), fallo));
        return false;
    }
}

}  // namespace

bool PrintOption(const PedidoDeGeneracion& pedido, const EleccionDeDispositivo& elegir) {
    const Analisis analisis = Analizar(pedido.especificacion, pedido.opciones);
    OyenteDeVista oyente(pedido.vista);
    const Chequeo c{pedido.especificacion, pedido.opciones, analisis, pedido.textos, oyente};
    if (analisis.ArchivoUnico && !ChequearIdentificadores(c)) return false;
    if (!ChequearArchivosCampos(c) || !TablasOK(c.especificacion, c.textos, pedido.vista)) return false;
    return ConAvisoDeFallo(pedido.vista, [&] {
        Dispositivo* const dispositivo = elegir();
        if (dispositivo == nullptr) return false;
        {
            const ConPunteroOcupado puntero(pedido.vista);
            Impresion(pedido, analisis, *dispositivo).Imprimir();
        }
        pedido.vista.Informar(MensajeDeImpreso(*dispositivo, c.textos));
        return true;
    });
}

void ImprimirBAPI(Dispositivo& d, const TextosIdioma& textos, Vista& vista, std::string_view nombre,
                  std::string_view documentacion) {
    ConfigurarImpresora(d);
    d.PonerOrigenIzquierdo(d.OrigenIzquierdo() + 1500);
    d.PonerLetra({d.LetraActual().nombre, 11, true});
    Linea(d, nombre);
    LineasVacias(d, 1);
    d.PonerLetra({d.LetraActual().nombre, 9, false});
    LineaSeparadora(d, 80);
    LineasVacias(d, 1);
    Linea(d, textos.Texto(198));
    for (const auto& linea : PartirLineas(documentacion, 72)) {
        ControlarPagina(d, textos);
        Linea(d, linea);
    }
    ConAvisoDeFallo(vista, [&] {
        d.Terminar();
        vista.Informar(MensajeDeImpreso(d, textos));
        return true;
    });
}

}  // namespace qor
