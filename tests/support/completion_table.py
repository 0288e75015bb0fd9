"""The table of what the shells complete, share/completion/options.tsv."""
import importlib.machinery
import importlib.util
import sys
from pathlib import Path

sys.dont_write_bytecode = True
MAKER = Path(__file__).resolve().parents[2] / "scripts/make-completions"


def maker():
    """The script that makes the shells' files of it."""
    loader = importlib.machinery.SourceFileLoader("make_completions", str(MAKER))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    sys.modules[loader.name] = module
    loader.exec_module(module)
    return module


def options_of(name):
    """The rows of a program, by the option's name."""
    make = maker()
    options = [option for program in make.read_table(make.TABLE) if program.name == name
               for option in program.options]
    by_name = {option.name: option for option in options}
    if not by_name or len(by_name) != len(options):
        sys.exit(f"{make.TABLE}: {name}: no option, or one of them twice")
    return by_name
