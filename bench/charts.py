"""Charts as SVG text: readable in light and dark, every figure written out."""
import html
import math

FONT = 'system-ui, "Segoe UI", "DejaVu Sans", Helvetica, Arial, sans-serif'
STYLE = '''
  svg { --page: #ffffff; --text: #1f2328; --quiet: #59636e; --grid: #d8dee4; --bar: #b3bcc6; --ours: #0969da;
        --line1: #bc4c00; --line2: #8250df; --line3: #1a7f37; --line4: #bf3989; --line5: #6e7781; }
  @media (prefers-color-scheme: dark) {
    svg { --page: #0d1117; --text: #e6edf3; --quiet: #9198a1; --grid: #30363d; --bar: #4a535e; --ours: #4493f8;
          --line1: #f0883e; --line2: #ab7df8; --line3: #3fb950; --line4: #f778ba; --line5: #9198a1; }
  }
  text { font: 12px FONT; fill: var(--text); }
  .title { font-weight: 600; font-size: 13px; }
  .ours { font-weight: 600; }
  .quiet { fill: var(--quiet); }
  .end { text-anchor: end; }
  .middle { text-anchor: middle; }
  path { fill: none; stroke-width: 2; stroke-linejoin: round; }
'''.replace('FONT', FONT)


def text(x, y, words, *classes):
    return f'<text x="{x:.1f}" y="{y:.1f}" class="{" ".join(classes)}">{html.escape(words)}</text>'


def rect(x, y, width, height, color):
    return f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height:.1f}" fill="var({color})"/>'


def picture(width, height, title, parts):
    head = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" '
            f'height="{height}" role="img">\n<title>{html.escape(title)}</title>\n<style>{STYLE}</style>')
    return '\n'.join([head, rect(0, 0, width, height, '--page'), *parts, '</svg>']) + '\n'


def bars(title, charts, ours, columns=3):
    """Bar charts side by side. `charts`: (heading, [(label, value, value as text)]), each with a scale of its own."""
    wide, bar_start, bar_most, line, top = 310, 118, 130, 19, 40
    tall = line * max(len(rows) for _, rows in charts) + 38
    parts = [text(12, 22, title)]
    for i, (heading, rows) in enumerate(charts):
        left, y = i % columns * wide + 12, i // columns * tall + top + 14
        parts.append(text(left, y, heading, 'title'))
        most = max(value for _, value, _ in rows) or 1
        for label, value, shown in rows:
            y += line
            mark = ['ours'] if label == ours else []
            length = max(1, bar_most * value / most)
            parts += [text(left + bar_start - 6, y, label, 'end', *mark),
                      rect(left + bar_start, y - 11, length, 14, '--ours' if mark else '--bar'),
                      text(left + bar_start + length + 5, y, shown, *mark)]
    rows_of_charts = -(-len(charts) // columns)
    return picture(columns * wide + 12, rows_of_charts * tall + top, title, parts)


def spread(places, least):
    """The places moved apart, as far as labels need it."""
    order = sorted(range(len(places)), key=places.__getitem__)
    places = list(places)
    for _ in range(100):
        for above, below in zip(order, order[1:]):
            lack = max(0, least - (places[below] - places[above]))
            places[above] -= lack / 2
            places[below] += lack / 2
    return places


def ticks(low, high):
    """1, 2 and 5 times the powers of ten in that range and one beyond each of its ends."""
    steps = [factor * 10 ** power for power in range(-3, 10) for factor in (1, 2, 5)]
    first = max(step for step in steps if step <= low)
    last = min(step for step in steps if step >= high)
    return [step for step in steps if first <= step <= last]


def lines(title, x_name, series, ours):
    """A line chart with both scales logarithmic. `series`: (label, {x: y})."""
    width, height, left, right, top, bottom = 900, 420, 64, 190, 40, 52
    xs = sorted({x for _, points in series for x in points})
    ys = ticks(min(min(points.values()) for _, points in series), max(max(points.values()) for _, points in series))

    def place(value, least, most, start, length):
        return start + length * math.log(value / least) / math.log(most / least)

    def at(x, y):
        return (place(x, xs[0], xs[-1], left, width - left - right),
                place(y, ys[0], ys[-1], height - bottom, top + bottom - height))

    parts = [text(12, 22, title)]
    for y in ys:
        height_of_y = at(xs[0], y)[1]
        parts += [rect(left, height_of_y - 0.5, width - left - right, 1, '--grid'),
                  text(left - 8, height_of_y + 4, f'{y:,g}', 'quiet', 'end')]
    parts += [text(at(x, ys[0])[0], height - bottom + 20, f'{x:,}', 'quiet', 'middle') for x in xs]
    parts.append(text((left + width - right) / 2, height - 12, x_name, 'quiet', 'middle'))
    ends = spread([at(max(points), points[max(points)])[1] for _, points in series], 16)
    others = [label for label, _ in series if label != ours]
    for (label, points), end in zip(series, ends):
        color = 'var(--ours)' if label == ours else f'var(--line{others.index(label) % 5 + 1})'
        mark = ['ours'] if label == ours else []
        places = [at(x, points[x]) for x in sorted(points)]
        parts.append(f'<path d="M {" L ".join(f"{x:.1f} {y:.1f}" for x, y in places)}" '
                     f'style="stroke: {color}; stroke-width: {3.5 if mark else 2}"/>')
        parts += [f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3.5" fill="{color}"/>' for x, y in places]
        parts.append(f'<path d="M {places[-1][0] + 6:.1f} {places[-1][1]:.1f} L {places[-1][0] + 18:.1f} {end:.1f}" '
                     f'style="stroke: {color}; stroke-width: 1"/>')
        parts.append(text(places[-1][0] + 22, end + 4, f'{label}, {points[max(points)]:,.0f}', *mark))
    return picture(width, height, title, parts)
