"""Captures of camera requests: their records as Python objects, NumPy arrays and tables.

    store = simrec.Store("capture-data")
    for capture in store:
        print(capture.name, capture["AE_AECData", 0])
    frame = pandas.DataFrame(store.table("AE_AECData"))
"""
from ._simrec import Capture, Error, NotFound, Record, Store, kinds

__all__ = ["Capture", "Error", "NotFound", "Record", "Store", "kinds"]
