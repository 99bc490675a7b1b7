"""Sphinx's settings for the API reference."""
import re
from pathlib import Path

_header = Path(__file__).resolve().parents[2] / "src/fetchkit/Version.h"
project = "FetchKit"
version = release = ".".join(
    re.findall(r"VERSION_(?:MAJOR|MINOR|PATCH) (\d+)$", _header.read_text(encoding="utf-8"), re.M))
extensions = ["myst_parser"]
myst_heading_anchors = 3
html_theme = "sphinx_rtd_theme"
html_theme_options = {"navigation_depth": 3, "collapse_navigation": False}
html_title = f"FetchKit {version} reference"
html_show_sphinx = False
html_show_copyright = False
html_copy_source = False
html_show_sourcelink = False
html_last_updated_fmt = None
highlight_language = "none"
suppress_warnings = ["myst.header", "misc.highlighting_failure"]
html_static_path = ["style.css"]
html_css_files = ["style.css"]
