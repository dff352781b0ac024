#include <algorithm>
#include <array>
#include <set>
#include <tuple>

#include "base/failure.h"
#include "base/failure_reason.h"
#include "base/message_text.h"
#include "base/text.h"
#include "findings/compile_faults.h"
#include "findings/refusals.h"
#include "generator/generate.h"

namespace qor {

namespace {

using Parte = Lugar::Parte;

class Recolector : public Oyente {
public:
    Recolector() : Oyente(true) {}
    void Recibir(const Observacion& observacion) override { observaciones.push_back(observacion); }

    std::vector<Observacion> observaciones;
};

// The step-loops' notes that can't be read, taken out, so that all the rest can be looked at.
Especificacion SinNotas(Especificacion especificacion, const std::vector<int>& filas) {
    for (const int fila : filas) especificacion.TablaTransaccion[fila].nota.clear();
    return especificacion;
}

// Behind these the report has no shape that a line of it could be held against.
bool DejaSinForma(const Hallazgo& hallazgo) {
    constexpr std::array codigos = {102, 103, 119, 120};
    return std::find(codigos.begin(), codigos.end(), hallazgo.codigo) != codigos.end();
}

// What the lack of a shape makes of step-loops and of fields in rows that are not reached, which may be no fault of theirs.
bool SigueDeLaForma(const Hallazgo& hallazgo) {
    constexpr std::array codigos = {117, 121, 601, 602, 603};
    return std::find(codigos.begin(), codigos.end(), hallazgo.codigo) != codigos.end();
}

bool EsNombreLlano(std::string_view nombre) {
    constexpr std::size_t largoDeNombre = 30;
    return !nombre.empty() && nombre.size() <= largoDeNombre && std::all_of(nombre.begin(), nombre.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
    });
}

class Analizador {
public:
    Analizador(const PedidoDeHallazgos& pedido, const Opciones& opciones, std::vector<Hallazgo>& lista)
        : pedido_(pedido), opciones_(opciones), lista_(lista) {}

    // False where the report could not be read as one.
    bool Analizar(const Especificacion& especificacion) {
        Recolector recolector;
        Generacion g = NuevaGeneracion(especificacion, opciones_, pedido_.preferencias, pedido_.textos, recolector,
                                       pedido_.RutaDocumento, pedido_.NombreDocumento);
        try {
            ComponerTodo(g);
        } catch (const FalloDeEjecucion& fallo) {
            Libreta(g, lista_).Agregar(120, {}, {EnIdioma(FraseDeMotivo(fallo.what()), g.textos)});
            return false;
        }
        HallazgosDeObservaciones(g, recolector.observaciones, lista_);
        Libreta libreta(g, lista_, pedido_.primeraFila);
        if (EstaEnBlanco(opciones_.Programa)) AgregarSinSalida(libreta);
        ReglasDeNombres(g, libreta);
        ReglasDeTextos(g, libreta);
        ReglasDeComportamiento(g, libreta);
        ReglasDeUso(g, libreta);
        if (std::any_of(lista_.begin(), lista_.end(), DejaSinForma)) {
            std::erase_if(lista_, SigueDeLaForma);
            return false;
        }
        RevisarReporte(g);
        return true;
    }

    // A report of this specification fails because of what its rows carry beside their texts.
    bool FallaPorMarcas() {
        Recolector recolector;
        Generacion g = NuevaGeneracion(pedido_.especificacion, opciones_, pedido_.preferencias, pedido_.textos, recolector,
                                       pedido_.RutaDocumento, pedido_.NombreDocumento);
        try {
            ComponerTodo(g);
        } catch (const FalloDeEjecucion&) {
            return true;
        }
        return std::any_of(recolector.observaciones.begin(), recolector.observaciones.end(),
                           [](const Observacion& observacion) { return observacion.mensaje.Numero() == 326; });
    }

private:
    // A name that is no table's has been told; the lines that it stands in are read as if it were one.
    void RevisarReporte(const Generacion& g) {
        if (!g.analisis.ManejoErrores || EsNombreLlano(opciones_.TablaZ)) {
            HallazgosDelReporteSinRepetir(g, lista_);
            return;
        }
        Opciones conTabla = opciones_;
        conTabla.TablaZ = tablaZDeNuevo;
        Recolector nadie;
        Generacion otra = NuevaGeneracion(g.especificacion, conTabla, pedido_.preferencias, pedido_.textos, nadie,
                                          pedido_.RutaDocumento, pedido_.NombreDocumento);
        ComponerTodo(otra);
        HallazgosDelReporteSinRepetir(otra, lista_);
    }

    void AgregarSinSalida(Libreta& libreta) {
        libreta.Agregar(110, Lugar::EnOpcion("Programa"));
        lista_.back().mensaje = 301;
        lista_.back().texto = pedido_.textos.Texto(301);
    }

    const PedidoDeHallazgos& pedido_;
    const Opciones& opciones_;
    std::vector<Hallazgo>& lista_;
};

std::string SinControles(std::string texto) {
    std::erase_if(texto, EsControl);
    return texto;
}

// Other findings in a cell with a control character speak of what it does, and so do rows that name a field without it.
void QuitarTrasControl(std::vector<Hallazgo>& lista) {
    std::set<Lugar> conControl;
    std::set<std::string> nombres;
    for (const auto& hallazgo : lista) {
        if (hallazgo.codigo != 101) continue;
        conControl.insert(hallazgo.lugar);
        nombres.insert(SinControles(hallazgo.celda));
    }
    if (conControl.empty()) return;
    std::erase_if(lista, [&](const Hallazgo& h) {
        return h.codigo != 101 && (conControl.contains(h.lugar) || (h.codigo == 201 && nombres.contains(h.celda)));
    });
}

// What a warning or a note says of a cell that is wrong anyway, or of a field or condition that a wrong cell may have meant.
void QuitarTrasErrores(std::vector<Hallazgo>& lista) {
    std::set<Lugar> conError;
    std::set<int> codigos;
    std::set<std::string> campos;
    for (const auto& hallazgo : lista) {
        if (hallazgo.gravedad != Gravedad::Error) continue;
        conError.insert(hallazgo.lugar);
        codigos.insert(hallazgo.codigo);
        if (hallazgo.codigo == 327) campos.insert(hallazgo.celda);
    }
    const auto sobra = [&](const Hallazgo& h) {
        if (h.gravedad == Gravedad::Error) return false;
        if (h.codigo == 601 || h.codigo == 603) return codigos.contains(201);
        if (h.codigo == 602) return codigos.contains(206) || codigos.contains(207);
        if (h.codigo == 402 && campos.contains(h.celda)) return true;
        if (h.codigo == 422 && codigos.contains(326)) return true;
        return conError.contains(h.lugar) && h.codigo > 400;
    };
    std::erase_if(lista, sobra);
}

// These tell of options that don't go together, or of lines of the report that stand for no text, whatever word shows it.
bool BastaUno(const Hallazgo& hallazgo) {
    const bool deOpciones = hallazgo.codigo == 301 || hallazgo.codigo == 302 || hallazgo.codigo == 325;
    return deOpciones || (hallazgo.codigo == 399 && hallazgo.lugar.linea == 0);
}

// In the order of the specification, each sentence once at a place.
void Ordenar(std::vector<Hallazgo>& lista) {
    const auto clave = [](const Hallazgo& h) {
        return std::tuple(h.lugar, h.codigo, BastaUno(h) ? std::string_view() : std::string_view(h.texto));
    };
    std::stable_sort(lista.begin(), lista.end(), [&](const Hallazgo& a, const Hallazgo& b) { return clave(a) < clave(b); });
    std::vector<Hallazgo> unicos;
    for (auto& hallazgo : lista) {
        if (unicos.empty() || clave(unicos.back()) != clave(hallazgo)) {
            unicos.push_back(std::move(hallazgo));
        } else {
            auto& lineas = unicos.back().lineas;
            lineas.insert(lineas.end(), hallazgo.lineas.begin(), hallazgo.lineas.end());
        }
    }
    lista = std::move(unicos);
}

}  // namespace

CuentaDeHallazgos ContarHallazgos(const std::vector<Hallazgo>& lista) {
    CuentaDeHallazgos cuenta;
    for (const auto& hallazgo : lista) {
        switch (hallazgo.gravedad) {
            case Gravedad::Error: ++cuenta.errores; break;
            case Gravedad::Aviso: ++cuenta.avisos; break;
            case Gravedad::Nota: ++cuenta.notas; break;
        }
    }
    return cuenta;
}

Hallazgos BuscarHallazgos(const PedidoDeHallazgos& pedido) {
    Hallazgos resultado;
    Opciones opciones = pedido.opciones;
    opciones.TablaZ = std::string(Recortar(opciones.TablaZ));
    Analizador analizador(pedido, opciones, resultado.lista);

    Recolector nadie;
    const Generacion vacia = NuevaGeneracion(pedido.especificacion, opciones, pedido.preferencias, pedido.textos, nadie, {}, {});
    HallazgosDeForma(vacia, resultado.lista);
    const auto ilegibles = FilasConMarcasIlegibles(pedido.especificacion);
    if (ilegibles.empty() || !analizador.FallaPorMarcas()) {
        resultado.completo = analizador.Analizar(pedido.especificacion);
    } else {
        Libreta libreta(vacia, resultado.lista);
        for (const int fila : ilegibles) {
            libreta.Agregar(119, Lugar::EnPrograma(fila, 4), {pedido.especificacion.TablaTransaccion[fila].nota});
        }
        resultado.completo = analizador.Analizar(SinNotas(pedido.especificacion, ilegibles));
    }
    QuitarTrasControl(resultado.lista);
    QuitarTrasErrores(resultado.lista);
    Ordenar(resultado.lista);
    return resultado;
}

}  // namespace qor
