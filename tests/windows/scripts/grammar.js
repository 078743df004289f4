// The assertions of every JScript test. A test ends with fin().
var comprobaciones = 0, fallas = 0;

function comprueba(que, cumple) {
    comprobaciones++;
    if (cumple) return;
    fallas++;
    WScript.Echo("FALLA: " + que);
}

function igual(que, obtenido, esperado) {
    comprueba(que + ": " + typeof obtenido + " [" + obtenido + "] en vez de [" + esperado + "]", obtenido === esperado);
}

function fallaCon(que, numero, accion) {
    try {
        accion();
        comprueba(que + ": no hubo error", false);
    } catch (error) {
        comprueba(que + ": error " + (error.number & 0xFFFF) + " [" + error.description + "]",
                  (error.number & 0xFFFF) === numero);
    }
}

function fin() {
    WScript.Echo("FIN: " + comprobaciones + " comprobaciones, " + fallas + " fallas");
}

