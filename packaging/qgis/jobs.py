"""Opens each job named in QGIS, without a screen and without a set in between, and looks at its
layers as a GIS does: counts, fields, reference system, valid polygons, the whole of them dissolved
to one. Ends with 1 where something is not as it must be."""

import sys

from each import look_at_each
from qgis.core import (
    QgsApplication,
    QgsDistanceArea,
    QgsProject,
    QgsProviderRegistry,
    QgsUnitTypes,
    QgsVectorLayer,
)

LAYERS = ("wire", "boom", "poly", "point")


def started():
    QgsApplication.setPrefixPath("/usr", True)
    application = QgsApplication([], False)
    application.initQgis()
    sys.path.append("/usr/share/qgis/python/plugins")
    from processing.core.Processing import Processing

    Processing.initialize()
    return application


def opened(job, name):
    layer = QgsVectorLayer(f"{job}|layername={name}", name, "ogr")
    assert layer.isValid(), f"{name} does not open"
    assert layer.crs().authid() == "EPSG:4269", f"{name} is of {layer.crs().authid()}"
    assert layer.featureCount() == sum(1 for _ in layer.getFeatures()), f"{name} is not as counted"
    return layer


def acres(layer):
    measure = QgsDistanceArea()
    measure.setSourceCrs(layer.crs(), QgsProject.instance().transformContext())
    measure.setEllipsoid("GRS80")
    area = sum(measure.measureArea(feature.geometry()) for feature in layer.getFeatures())
    return measure.convertAreaMeasurement(area, QgsUnitTypes.AreaAcres)


def dissolved(layer):
    import processing

    faults = [f.id() for f in layer.getFeatures() if not f.geometry().isGeosValid()]
    assert not faults, f"rings {faults} are not valid"
    # Ends with an exception at the first polygon that is not valid, as it does for a user.
    whole = processing.run("native:dissolve", {"INPUT": layer, "FIELD": [], "OUTPUT": "memory:"})
    features = list(whole["OUTPUT"].getFeatures())
    assert len(features) == 1 and features[0].geometry().isGeosValid(), "dissolved to nothing valid"
    return whole["OUTPUT"]


def look_at(job):
    found = [layer.name() for layer in QgsProviderRegistry.instance().querySublayers(job)]
    assert tuple(found) == LAYERS, f"found {found}"
    counts = ", ".join(f"{name} {opened(job, name).featureCount()}" for name in LAYERS)
    poly = opened(job, "poly")
    print(f"  {counts}")
    print(f"  poly: {acres(poly):.2f} acres, dissolved {acres(dissolved(poly)):.2f} acres")
    net = opened(job, "net")
    told = sum(feature["ACRES"] for feature in net.getFeatures())
    print(f"  net: {acres(net):.2f} acres, in its table {told:.2f}, dissolved "
          f"{acres(dissolved(net)):.2f}")


application = started()
failed = look_at_each(look_at)
application.exitQgis()
sys.exit(failed)
