// The same surface from JScript: null is Null, undefined is Empty, numbers are doubles.
var addenda = new ActiveXObject("TOLVEX.Addenda");
var detalle = new ActiveXObject("TOLVEX.DetFacturas");

igual("SetAddenda da Empty", addenda.SetAddenda("R", 1, 2), undefined);
igual("undefined es cero", addenda.SetAddenda(undefined, undefined, 2.0), undefined);
igual("SetDetalleDocto", detalle.SetDetalleDocto("1", "F", "A", "P", 2.5, "PZA", 1e3, 0.16, "25", 16), undefined);

fallaCon("null", 94, function () { addenda.SetAddenda(null, 1, 1); });
fallaCon("fuera de rango", 6, function () { addenda.SetAddenda("R", 70000, 1); });
fallaCon("no es número", 6, function () { detalle.SetDetalleDocto("1", "F", "A", "P", 0 / 0, "", 1, 1, 1, 1); });
fallaCon("objeto de JScript", 13, function () { addenda.SetAddenda("R", {}, 1); });
fallaCon("método que no existe", 438, function () { addenda.NoExiste(); });

fin();
