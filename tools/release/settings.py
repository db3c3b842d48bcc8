"""The version and the update host of the present build, for whatever has to name them."""
import re

from changelog import Refused

HOST_NAME = re.compile(r"[A-Za-z0-9]([A-Za-z0-9.-]*[A-Za-z0-9])?(:[0-9]+)?")


def product_names(root):
    """What cmake/product.cmake says, by the names it has there."""
    product = (root / "cmake" / "product.cmake").read_text(encoding="utf-8")
    return dict(re.findall(r'^set\((PRODUCT_\w+) "([^"]*)"', product, re.M))


def product_settings(root):
    """The version, and the host that the setup asks: the one in the settings of its build, else the default of all."""
    names = product_names(root)
    cache = root / "build" / "win64" / "CMakeCache.txt"
    built = re.search(r"^PRODUCT_UPDATE_HOST:[^=\n]*=(.*)$", cache.read_text(encoding="utf-8") if cache.exists() else "", re.M)
    version, host = names.get("PRODUCT_VERSION"), built[1] if built else names.get("PRODUCT_UPDATE_HOST")
    if version is None or host is None:
        raise Refused("cmake/product.cmake: PRODUCT_VERSION or PRODUCT_UPDATE_HOST was not found")
    if not HOST_NAME.fullmatch(host):
        raise Refused(f"PRODUCT_UPDATE_HOST is '{host}', which is no host name")
    return version, host
