"""Opens each job named in GeoPandas: every layer has its rows, reference system and columns, and
the ground of the net layer measures what its table says. Ends with 1 where it does not."""

import sys

import fiona
import geopandas
from each import look_at_each

# Fiona asks only drivers that it has heard of.
fiona.supported_drivers["Kestrin"] = "r"
SQUARE_METRES = 4046.8564224  # of an acre


def look_at(job):
    assert fiona.listlayers(job) == ["wire", "boom", "poly", "point"], fiona.listlayers(job)
    frames = {name: geopandas.read_file(job, layer=name)
              for name in ("wire", "boom", "poly", "point", "net")}
    for name, frame in frames.items():
        assert frame.crs.to_epsg() == 4269, f"{name} is of {frame.crs}"
        assert list(frame["ID"]) == list(range(len(frame))), f"{name} is not in its order"
    net = frames["net"].to_crs(frames["net"].estimate_utm_crs())
    assert net.is_valid.all(), "net is not valid"
    measured = net.area.sum() / SQUARE_METRES
    told = frames["net"]["ACRES"].sum()
    # Each record is rounded to a hundredth.
    assert abs(measured - told) < 0.01 * len(net) + 0.01 * told, f"{measured} for {told} acres"
    print("  " + ", ".join(f"{name} {len(frame)}" for name, frame in frames.items()) +
          f"; net measures {measured:.2f} acres, in its table {told:.2f}")


sys.exit(look_at_each(look_at))
