#!/usr/bin/env python3
"""Which scenes between two lux indices had light above a colour temperature?

    examples/warm_scenes.py --data capture-data --lux 240 255 --above 4000
"""
import argparse

import simrec


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--data", help="the data folder; else SIMREC_DATA")
    parser.add_argument("--camera", type=int, default=0)
    parser.add_argument("--lux", nargs=2, type=float, default=(240, 255), metavar=("FROM", "TO"))
    parser.add_argument("--above", type=float, default=4000, metavar="KELVIN")
    options = parser.parse_args()

    store = simrec.Store(options.data)
    exposure = store.table("AWB_AECData")
    light = store.table("ZOAWB_SpectralSensorInfo")

    # Comparisons with nan, which stands for what a damaged file lacks, are false.
    low, high = options.lux
    lux = exposure["luxIndex"]
    fits = (exposure["camera"] == options.camera) & (low <= lux) & (lux <= high)
    scenes = dict(zip(exposure["capture"][fits], lux[fits]))
    above = light["cct"] > options.above

    print(f"{'capture':<24} lux index  colour temperature")
    for capture, kelvin in zip(light["capture"][above], light["cct"][above]):
        if capture in scenes:
            print(f"{capture:<24} {scenes[capture]:9.2f}  {kelvin:.0f} K")


main()
