"""The tour's index page: every scene in light and dark, the figures measured on them, and what changed."""
import html
import os

STYLE = """
body { font: 15px/1.5 system-ui, sans-serif; margin: 2rem auto; max-width: 75rem; padding: 0 1rem; color: #1d1e20; }
h2 { margin-top: 2.5rem; } table { border-collapse: collapse; } td, th { padding: .2rem .8rem; text-align: left; }
.pair { display: flex; gap: 1rem; flex-wrap: wrap; } figure { margin: 0; flex: 1 1 30rem; } img { max-width: 100%; border: 1px solid #c4c7cc; }
.bad { color: #b3261e; } figcaption { color: #5c5f66; }
"""


def figure(path, caption):
    return f'<figure><a href="{path}"><img loading="lazy" src="{path}" alt="{html.escape(caption)}"></a><figcaption>{html.escape(caption)}</figcaption></figure>'


def write(directory, scenes):
    """scenes: a list of dictionaries with name, look, picture, findings, weakest (contrast), texts, changed (share or None),
    accepted (path or None)."""
    names = []
    for scene in scenes:
        if scene["name"] not in names:
            names.append(scene["name"])
    weakest = {}
    for look in sorted({scene["look"] for scene in scenes}):
        weakest[look] = min((scene["weakest"] for scene in scenes if scene["look"] == look and scene["weakest"]), default=None)
    parts = [f"<!doctype html><meta charset=utf-8><title>Tour</title><style>{STYLE}</style><h1>Tour</h1><table>",
             f"<tr><th>Scenes</th><td>{len(names)}</td></tr><tr><th>Pictures</th><td>{len(scenes)}</td></tr>",
             f"<tr><th>Texts measured</th><td>{sum(scene['texts'] for scene in scenes)}</td></tr>"]
    for look, ratio in weakest.items():
        parts.append(f"<tr><th>Weakest contrast, {look}</th><td>{ratio:.2f} : 1</td></tr>" if ratio else "")
    parts.append(f"<tr><th>Findings</th><td>{sum(len(scene['findings']) for scene in scenes)}</td></tr></table>")
    for name in names:
        parts.append(f'<h2 id="{name}">{html.escape(name.replace("-", " "))}</h2><div class=pair>')
        for scene in scenes:
            if scene["name"] != name:
                continue
            ratio = f", weakest contrast {scene['weakest']:.2f} : 1 in {scene['texts']} texts" if scene["weakest"] else ""
            parts.append(figure(os.path.basename(scene["picture"]), f"{scene['look']}{ratio}"))
        parts.append("</div>")
        for scene in scenes:
            if scene["name"] != name:
                continue
            for finding in scene["findings"]:
                parts.append(f"<p class=bad>{scene['look']}: {html.escape(finding)}</p>")
            if scene.get("accepted"):
                parts.append("<div class=pair>" + figure(scene["accepted"], f"{scene['look']}, accepted")
                             + figure(scene["reduced"], f"{scene['look']}, now: {scene['changed']:.1%} of it differs") + "</div>")
    with open(os.path.join(directory, "index.html"), "w", encoding="utf-8") as target:
        target.write("\n".join(parts))
