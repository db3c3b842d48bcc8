"""The version and the update host of the present build, for whatever has to name them."""
import re

from changelog import Refused

HOST_NAME = re.compile(r"[A-Za-z0-9]([A-Za-z0-9.-]*[A-Za-z0-9])?(:[0-9]+)?")


def product_settings(root):
    """The version, and the host that the setup asks: the one in the settings of its build, else the default of all."""
    product = (root / "cmake" / "product.cmake").read_text(encoding="utf-8")
    cache = root / "build" / "win64" / "CMakeCache.txt"
    cached = cache.read_text(encoding="utf-8") if cache.exists() else ""
    built = re.search(r"^PRODUCT_UPDATE_HOST:[^=\n]*=(.*)$", cached, re.M)
    version = re.search(r'^set\(PRODUCT_VERSION "([^"]*)"\)', product, re.M)
    host = built or re.search(r'^set\(PRODUCT_UPDATE_HOST "([^"]*)"', product, re.M)
    if not version or not host:
        raise Refused("cmake/product.cmake: PRODUCT_VERSION or PRODUCT_UPDATE_HOST was not found")
    if not HOST_NAME.fullmatch(host[1]):
        raise Refused(f"PRODUCT_UPDATE_HOST is '{host[1]}', which is no host name")
    return version[1], host[1]
