"""What the programs that make packages share: the version, the installed tree, the date."""
import hashlib
import os
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
DATE = int(os.environ["SOURCE_DATE_EPOCH"])


def run(*command):
    subprocess.run([str(part) for part in command], check=True, stdout=subprocess.DEVNULL)


def output_of(*command, **options):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True, text=True, **options).stdout


def version_of(build):
    """The version that the tree was configured with, which is written in CMakeLists.txt alone."""
    return re.search(r"^CMAKE_PROJECT_VERSION:STATIC=(.*)$", (build / "CMakeCache.txt").read_text(), re.M).group(1)


def install(build, component, prefix):
    run("cmake", "--install", build, "--component", component, "--prefix", prefix)


def normalize(tree):
    """Rights and dates by which nobody sees who packed the tree, and when."""
    for path in [tree, *tree.rglob("*")]:
        if not path.is_symlink():
            path.chmod(0o755 if path.is_dir() else 0o644)
        os.utime(path, (DATE, DATE), follow_symlinks=False)


def write_sums(packages):
    """SHA256SUMS for all that lies in the folder, as sha256sum -c reads it."""
    files = sorted(path for path in packages.iterdir() if path.name != "SHA256SUMS")
    lines = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}\n" for path in files]
    (packages / "SHA256SUMS").write_text("".join(lines), encoding="ascii")
