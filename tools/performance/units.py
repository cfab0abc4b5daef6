"""Times, sizes and ratios as they stand in the report, and limits as they stand in the tables of cases."""

SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
BYTES = {"B": 1, "KiB": 1024, "MiB": 1024**2, "GiB": 1024**3}


def parse_limit(text):
    """A limit like "25 ns" or "20 KiB": its value in seconds or bytes."""
    number, unit = text.split()
    return float(number) * (SECONDS | BYTES)[unit]


def three_digits(value):
    """Three significant digits, without an exponent."""
    if value >= 99.95:
        return f"{value:,.0f}"
    return f"{value:.1f}" if value >= 9.995 else f"{value:.2f}"


def show_time(seconds):
    for unit, size in SECONDS.items():
        if seconds < 999.5 * size or unit == "s":
            return f"{three_digits(seconds / size)} {unit.replace('us', 'µs')}"


def show_bytes(count):
    for unit, size in BYTES.items():
        if count < 1000 * size or unit == "GiB":
            return f"{count / size:,.0f} B" if unit == "B" else f"{three_digits(count / size)} {unit}"


def show_figure(metric, value):
    """A figure of a metric. The time of a byte is shown as how many pass in a second."""
    return f"{three_digits(1e-9 / value)} GB/s" if metric == "bytes" else show_time(value)


def show_ratio(ratio):
    return f"{ratio:.3f}" if 0.9 <= ratio < 1 else three_digits(ratio)


def show_size(text):
    """A number out of a benchmark's name, with its thousands apart. Numbers of pages have no such groups."""
    return f"{int(text):,}" if text.isdigit() and len(text) > 4 else text
