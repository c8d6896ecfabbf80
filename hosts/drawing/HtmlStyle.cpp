// Colours are those of Okabe and Ito, "Color Universal Design" (2008), which people with any kind
// of colour vision tell apart; of each pair the one with more contrast to the ground is taken.
// Characters that XML escapes are avoided, so that the page is well-formed XML as well.
#include "drawing/HtmlStyle.h"

namespace drawing {

namespace {

constexpr std::string_view kStyleSheet = R"(:root {
  color-scheme: light dark;
  --ground: #fbfbf9; --raised: #ffffff; --ink: #1d2329; --muted: #5b646d; --rule: #d9dcdf;
  --sheet: #e6ebef; --focus: #0072b2; --tint: #fdf0cf;
  --blue: #0072b2; --red: #d55e00; --green: #00835f; --purple: #a8558a;
}
@media (prefers-color-scheme: dark) {
  :root {
    --ground: #15181b; --raised: #1c2024; --ink: #e7eaec; --muted: #9ca6ae; --rule: #343b41;
    --sheet: #2a3138; --focus: #56b4e9; --tint: #4a3d12;
    --blue: #56b4e9; --red: #e69f00; --green: #2fc29a; --purple: #d994ba;
  }
}
* { box-sizing: border-box; }
html { -webkit-text-size-adjust: 100%; }
body {
  margin: 0; background: var(--ground); color: var(--ink);
  font: 15px/1.5 system-ui, -apple-system, "Segoe UI", Roboto, "Noto Sans", Arial, sans-serif;
}
main { max-width: 84rem; margin: 0 auto; padding: 1.75rem clamp(1rem, 3vw, 2.5rem) 4rem; }
h1 { margin: 0; font-size: 1.05rem; font-weight: 600; color: var(--muted); overflow-wrap: anywhere; }
h2 { margin: 2.5rem 0 .6rem; font-size: 1.12rem; font-weight: 650; }
h3 { margin: 1.4rem 0 .4rem; font-size: 1rem; font-weight: 650; }
p { margin: .4rem 0; max-width: 46rem; }
ul.plain { margin: .4rem 0; padding-left: 1.2rem; max-width: 56rem; }
.lead { margin: .35rem 0 0; max-width: 60rem; font-size: 1.5rem; line-height: 1.3; font-weight: 650; letter-spacing: -.01em; text-wrap: pretty; }
.good::before { content: "\2713\00a0"; color: var(--green); }
.bad::before { content: "\2717\00a0"; color: var(--red); }
.quiet { color: var(--muted); }
.facts { display: flex; flex-wrap: wrap; gap: .5rem 2.25rem; margin: 1rem 0 0; }
.facts div { min-width: 0; }
.facts dt { font-size: .8rem; color: var(--muted); }
.facts dd { margin: 0; overflow-wrap: anywhere; font-variant-numeric: tabular-nums; }

.side { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(100%, 26rem), 1fr));
  gap: 1rem 1.25rem; margin-top: 1.75rem; }
figure { margin: 0; min-width: 0; position: relative; }
figcaption { margin-bottom: .35rem; font-weight: 600; padding-right: 7rem; overflow-wrap: anywhere; }
.legend { display: flex; flex-wrap: wrap; gap: .2rem 1.4rem; margin: .6rem 0 0; padding: 0;
  list-style: none; font-size: .87rem; color: var(--muted); }
.legend li { display: flex; align-items: center; gap: .45rem; }

.picture { display: block; width: 100%; height: auto; background: var(--raised);
  border: 1px solid var(--rule); border-radius: 4px; --k: calc(var(--w) / 560); }
.swatch { width: 34px; height: 10px; flex: none; }
.picture path, .swatch path { fill: none; stroke-width: 1.5; stroke: var(--ink);
  vector-effect: non-scaling-stroke; stroke-linejoin: round; }
.picture path.sheet { fill: var(--sheet); fill-rule: evenodd; stroke: none; }
.picture path.filled { fill: var(--sheet); fill-rule: evenodd; }
.swatch path.sheet { stroke: var(--sheet); stroke-width: 10; }
path.dashed { stroke-dasharray: 9 5; }
path.dotted { stroke-dasharray: .1 5; stroke-linecap: round; }
path.dashdot { stroke-dasharray: 10 4 .1 4; stroke-linecap: round; }
.picture path.faint, .swatch path.faint { stroke: var(--muted); }
.picture path.blue, .swatch path.blue { stroke: var(--blue); }
.picture path.red, .swatch path.red { stroke: var(--red); }
.picture path.green, .swatch path.green { stroke: var(--green); }
.picture path.purple, .swatch path.purple { stroke: var(--purple); }
.picture path.thin, .swatch path.thin { stroke-width: 1; }
.picture path.thick, .swatch path.thick, .picture path.dotted, .swatch path.dotted {
  stroke-width: 2.5; }
.picture path.dots, .swatch path.dots { stroke-width: 6; stroke-linecap: round; }
.picture path.dots.thin, .swatch path.dots.thin { stroke-width: 3; }
.picture path.square, .swatch path.square { stroke-linecap: square; }
.size { transform: scale(var(--k)); }
.badge { --c: var(--ink); cursor: pointer; }
.badge.blue { --c: var(--blue); } .badge.red { --c: var(--red); }
.badge.green { --c: var(--green); } .badge.purple { --c: var(--purple); }
.badge.faint { --c: var(--muted); }
.badge .lead-line { stroke: var(--c); stroke-width: 1; }
.badge .pin, .badge .pin path { fill: var(--c); stroke: none; }
.badge g > rect, .badge g > path { fill: var(--raised); stroke: var(--c); stroke-width: 1.5; }
.badge .pin rect, .badge .pin path { fill: var(--c); stroke: var(--raised); stroke-width: 1; }
.badge text { font: 600 11px/1 system-ui, sans-serif; text-anchor: middle; fill: var(--ink);
  font-variant-numeric: tabular-nums; }
.badge g > .lead-line { fill: none; }
.spot { visibility: hidden; pointer-events: none; }
.spot circle { fill: none; stroke: var(--red); stroke-width: 3; }
.spot .pin { stroke: none; }
.spot.marked { visibility: visible; }
.badge.marked g > rect, .badge.marked g > path:not(.lead-line) { fill: var(--tint);
  stroke-width: 3; }
.picture path.marked { stroke-width: 5; }
.picture [data-mark] { cursor: pointer; }
.zoom { position: absolute; top: -.15rem; right: 0; display: flex; gap: .25rem; }
.zoom button { min-width: 2rem; height: 1.75rem; padding: 0 .4rem; border-radius: 4px;
  border: 1px solid var(--rule); background: var(--raised); color: var(--ink);
  font: inherit; font-size: .87rem; line-height: 1; cursor: pointer; }
.zoom button:hover { border-color: var(--muted); }

.scroll { max-height: 34rem; overflow: auto; border: 1px solid var(--rule); border-radius: 4px;
  background: var(--raised); width: fit-content; max-width: 100%; }
table { border-collapse: separate; border-spacing: 0; font-size: .93rem; line-height: 1.4;
  font-variant-numeric: tabular-nums lining-nums; }
th, td { padding: .32rem .8rem; text-align: left; vertical-align: top;
  border-bottom: 1px solid var(--rule); }
tbody tr:last-child td { border-bottom: 0; }
thead th { position: sticky; top: 0; z-index: 1; background: var(--raised); color: var(--muted);
  font-size: .82rem; font-weight: 600; white-space: nowrap; }
.num { text-align: right; }
.num, .line { white-space: nowrap; }
tr.loud td { font-weight: 650; }
tr.quiet td { color: var(--muted); }
p[data-mark] { padding: .5rem .8rem; border: 1px solid var(--rule);
  border-left: 4px solid var(--red); border-radius: 4px; background: var(--raised);
  cursor: pointer; }
p.marked { background: var(--tint); }
tr[data-mark] { cursor: pointer; }
tr[data-mark]:hover td { background: color-mix(in srgb, var(--tint) 45%, transparent); }
tr.marked td { background: var(--tint); }
tr.marked td:first-child { box-shadow: inset 4px 0 0 var(--red); }
details.fold { margin-top: 2rem; border-top: 1px solid var(--rule); }
details.fold summary { padding: .6rem 0; font-weight: 650; cursor: pointer; }
pre { overflow: auto; max-height: 34rem; font-size: .85rem; line-height: 1.45; }
:focus-visible { outline: 2px solid var(--focus); outline-offset: 2px; }
tr:focus-visible { outline-offset: -2px; }

@media print {
  :root {
    color-scheme: light;
    --ground: #fff; --raised: #fff; --ink: #000; --muted: #444; --rule: #bbb; --sheet: #ececec;
    --tint: #f4e6b8; --blue: #0072b2; --red: #d55e00; --green: #00704f; --purple: #a8558a;
  }
  @page { margin: 14mm; }
  * { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  body { font-size: 10pt; }
  main { max-width: none; padding: 0; }
  .lead { font-size: 15pt; }
  h2 { margin-top: 1.2rem; }
  figcaption { padding-right: 0; }
  h1, h2, h3, summary, figcaption, p.quiet { break-after: avoid; }
  figure, .picture, tr, .facts div { break-inside: avoid; }
  thead { display: table-header-group; }
  thead th { position: static; }
  .side { grid-template-columns: 1fr 1fr; gap: .5rem .8rem; }
  .side figure:only-child { grid-column: 1 / 3; }
  .picture { --k: calc(var(--w) / 440) !important; max-height: 22cm; }
  .scroll { max-height: none; overflow: visible; border: 0; width: auto; }
  table { font-size: 8.5pt; }
  thead th { font-size: 8pt; }
  th, td { padding: .2rem .4rem; }
  pre { max-height: none; white-space: pre-wrap; overflow: visible; }
  details.fold::details-content { content-visibility: visible; display: block; height: auto; }
  .zoom { display: none; }
}
)";

// Marks, folds and zoom. A view is a place in parts of the picture's size and a factor, so that
// linked pictures of different sizes show the same.
constexpr std::string_view kScript = R"((function () {
  'use strict';
  function all(selector) { return Array.from(document.querySelectorAll(selector)); }
  function keys(e) { return (e.getAttribute('data-mark') || '').split(' ').filter(Boolean); }

  // Marks: what shares a key is marked together.
  const marks = all('[data-mark]');
  marks.forEach(function (e) {
    e.setAttribute('aria-pressed', 'false');
    if (e.classList.contains('spot')) return;
    e.setAttribute('tabindex', '0');
    if (e.tagName.toLowerCase() !== 'tr') e.setAttribute('role', 'button');
  });
  function show(from) {
    const inPicture = Boolean(from.closest('svg'));
    const other = marks.find(function (e) {
      return e.classList.contains('marked') ? Boolean(e.closest('svg')) !== inPicture : false;
    });
    if (!other) return;
    const fold = other.closest('details');
    if (fold) fold.open = true;
    const seen = inPicture ? other : other.closest('figure') || other.closest('svg');
    seen.scrollIntoView({ block: inPicture ? 'center' : 'nearest', behavior: 'auto' });
  }
  function toggle(from) {
    const on = !from.classList.contains('marked');
    const chosen = new Set(on ? keys(from) : []);
    marks.forEach(function (e) {
      const hit = keys(e).some(function (k) { return chosen.has(k); });
      if (hit === e.classList.contains('marked')) return;
      e.classList.toggle('marked', hit);
      e.setAttribute('aria-pressed', String(hit));
    });
    if (on) show(from);
  }
  document.addEventListener('click', function (event) {
    const from = event.target.closest('[data-mark]');
    if (!from) return;
    if (String(window.getSelection())) return;
    toggle(from);
  });
  document.addEventListener('keydown', function (event) {
    if (![' ', 'Enter'].includes(event.key)) return;
    const from = event.target;
    if (!from.hasAttribute || !from.hasAttribute('data-mark')) return;
    event.preventDefault();
    toggle(from);
  });

  // Folds lie open in the file, so that nothing is lost without this script or on paper.
  const folds = all('details.fold');
  function fold(open) { folds.forEach(function (e) { e.open = open; }); }
  let wasOpen = [];
  fold(false);

  // Zoom: pictures of one view move together.
  const views = new Map();
  function pixel(svg) {
    const matrix = svg.getScreenCTM();
    if (matrix) svg.style.setProperty('--k', String(1 / matrix.a));
  }
  function apply(view) {
    const half = 0.5 / view.f;
    view.x = Math.min(Math.max(view.x, half), 1 - half);
    view.y = Math.min(Math.max(view.y, half), 1 - half);
    view.pictures.forEach(function (p) {
      p.svg.setAttribute('viewBox', [(view.x - half) * p.w, (view.y - half) * p.h,
        p.w / view.f, p.h / view.f].join(' '));
      p.svg.style.touchAction = view.f > 1 ? 'none' : '';
      pixel(p.svg);
    });
  }
  // The middle of what is marked in one of the pictures, or else what is in the middle.
  function aim(view) {
    view.pictures.some(function (p) {
      const mark = p.svg.querySelector('.marked');
      if (!mark) return false;
      const r = (mark.querySelector('.pin') || mark).getBoundingClientRect();
      const box = p.svg.getBoundingClientRect();
      view.x += ((r.left + r.width / 2 - box.left) / box.width - 0.5) / view.f;
      view.y += ((r.top + r.height / 2 - box.top) / box.height - 0.5) / view.f;
      return true;
    });
  }
  function zoom(view, factor) {
    if (factor > 1) aim(view);
    view.f = Math.min(Math.max(view.f * factor, 1), 2000);
    apply(view);
  }
  function button(bar, text, title, act) {
    const b = document.createElement('button');
    b.type = 'button';
    b.textContent = text;
    b.title = title;
    b.setAttribute('aria-label', title);
    b.addEventListener('click', act);
    bar.appendChild(b);
  }
  function addButtons(svg, view) {
    const bar = document.createElement('div');
    bar.className = 'zoom';
    button(bar, '+', 'Nearer, to what is marked', function () { zoom(view, 2); });
    button(bar, '\u2212', 'Farther', function () { zoom(view, 0.5); });
    button(bar, '\u2922', 'The whole picture', function () { zoom(view, 0); });
    svg.parentNode.appendChild(bar);
  }
  function follow(svg, view) {
    svg.addEventListener('wheel', function (event) {
      if (!event.ctrlKey) return;
      event.preventDefault();
      const box = svg.getBoundingClientRect();
      const dx = (event.clientX - box.left) / box.width - 0.5;
      const dy = (event.clientY - box.top) / box.height - 0.5;
      const before = view.f;
      view.f = Math.min(Math.max(view.f * Math.exp(-event.deltaY / 200), 1), 2000);
      view.x += dx / before - dx / view.f;
      view.y += dy / before - dy / view.f;
      apply(view);
    }, { passive: false });
    let from = null;
    let moved = false;
    svg.addEventListener('pointerdown', function (event) {
      from = view.f > 1 ? { x: event.clientX, y: event.clientY } : null;
      moved = false;
    });
    svg.addEventListener('pointermove', function (event) {
      if (!from) return;
      const dx = event.clientX - from.x;
      const dy = event.clientY - from.y;
      if (!moved) {
        if (5 > Math.hypot(dx, dy)) return;
        moved = true;
        svg.setPointerCapture(event.pointerId);
      }
      const box = svg.getBoundingClientRect();
      view.x -= dx / box.width / view.f;
      view.y -= dy / box.height / view.f;
      from = { x: event.clientX, y: event.clientY };
      apply(view);
    });
    ['pointerup', 'pointercancel'].forEach(function (name) {
      svg.addEventListener(name, function () { from = null; });
    });
  }
  all('svg.picture').forEach(function (svg, i) {
    const name = svg.getAttribute('data-view') || 'picture ' + i;
    if (!views.has(name)) views.set(name, { x: 0.5, y: 0.5, f: 1, pictures: [] });
    const view = views.get(name);
    const box = svg.getAttribute('viewBox').split(' ').map(Number);
    view.pictures.push({ svg: svg, w: box[2], h: box[3] });
    addButtons(svg, view);
    follow(svg, view);
    pixel(svg);
  });
  window.addEventListener('resize', function () {
    views.forEach(function (view) { view.pictures.forEach(function (p) { pixel(p.svg); }); });
  });

  window.addEventListener('beforeprint', function () {
    wasOpen = folds.map(function (e) { return e.open; });
    fold(true);
  });
  window.addEventListener('afterprint', function () {
    folds.forEach(function (e, i) { e.open = wasOpen[i] === true; });
  });
}());
)";

}  // namespace

std::string_view HtmlStyleSheet() { return kStyleSheet; }

std::string_view HtmlScript() { return kScript; }

}  // namespace drawing
