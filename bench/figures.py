"""How a figure is printed and held against its limit."""
exceeded = []


def line(name, value, limit, unit="", detail=""):
    ok = value <= limit
    if not ok:
        exceeded.append(name)
    print(f"  {name:<44} {value:10,.2f} {unit:<6} limit {limit:10,.2f}  {'ok' if ok else 'EXCEEDED'}  {detail}")
