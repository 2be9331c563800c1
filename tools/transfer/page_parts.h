// The parts of the page that are always the same.
#pragma once

constexpr const char* kPageStyle = R"(
:root { color-scheme: light dark; --back: #fff; --soft: #f3f4f6; --line: #d8dbe0; --text: #1b1f24; --dim: #5b6470;
  --old: #a3222f; --old-back: #fdeaec; --new: #14652f; --new-back: #e3f5e8; --mark: #0b5cad; }
@media (prefers-color-scheme: dark) { :root { --back: #15181c; --soft: #1f242a; --line: #363d46; --text: #e4e7eb;
  --dim: #9aa4b0; --old: #ff9a9f; --old-back: #43211f; --new: #83dd9b; --new-back: #15391f; --mark: #79b8ff; } }
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 72rem; padding: 1.25rem 1rem 4rem; background: var(--back); color: var(--text);
  font: 15px/1.5 system-ui, sans-serif; overflow-wrap: anywhere; }
h1 { margin: 0 0 .5rem; font-size: 1.35rem; line-height: 1.3; }
h2 { margin: 1.75rem 0 .5rem; font-size: 1.05rem; }
p, ul { margin: .25rem 0; }
.facts { color: var(--dim); }
.facts b, .path { color: var(--text); font-weight: 600; }
.warning { border-left: 4px solid var(--old); padding: .25rem .75rem; background: var(--old-back); }
.bar { position: sticky; top: 0; z-index: 1; display: flex; flex-wrap: wrap; gap: .4rem; padding: .6rem 0;
  background: var(--back); border-bottom: 1px solid var(--line); }
input { flex: 1 1 14rem; min-width: 0; font: inherit; padding: .35rem .6rem; border: 1px solid var(--line);
  border-radius: 6px; background: var(--soft); color: inherit; }
button { font: inherit; padding: .35rem .7rem; border: 1px solid var(--line); border-radius: 6px;
  background: var(--soft); color: inherit; cursor: pointer; }
button[aria-pressed=true] { border-color: var(--mark); color: var(--mark); box-shadow: inset 0 0 0 1px var(--mark); }
button:focus-visible, input:focus-visible, summary:focus-visible { outline: 2px solid var(--mark); outline-offset: 1px; }
.n { border-top: 1px solid transparent; }
.n .n { margin-left: 1.1rem; }
.line { padding: .1rem .3rem .1rem 1.1rem; }
summary { padding: .1rem .3rem .1rem 0; cursor: pointer; }
summary::marker { color: var(--dim); }
summary:hover, .line:hover { background: var(--soft); border-radius: 4px; }
.id, .note, .count { color: var(--dim); font-size: .85em; }
.id::before { content: '#'; }
.value { white-space: pre-wrap; }
del, ins { white-space: pre-wrap; text-decoration: none; padding: 0 .3em; border-radius: 4px; }
del { color: var(--old); background: var(--old-back); }
ins { color: var(--new); background: var(--new-back); }
.tag { font-weight: 500; }
.s { font-size: .8em; color: var(--mark); border: 1px solid currentColor; border-radius: 4px; padding: 0 .35em; }
.list > summary { padding: .5rem 0 .25rem; }
.list h2 { display: inline; }
.list { margin-top: .5rem; }
.list .line { padding-left: .3rem; border-top: 1px solid var(--line); }
[hidden] { display: none !important; }
@media (max-width: 40rem) { .bar { position: static; } body { font-size: 14px; padding: 1rem .75rem 3rem; } .n .n { margin-left: .7rem; } }
@media print { .bar { display: none; } }
)";

constexpr const char* kPageScript = R"(
const input = document.querySelector('input'), buttons = [...document.querySelectorAll('button[data-s]')];
const none = document.getElementById('none');
let words = '', wanted = new Set();
const own = n => n.tagName === 'DETAILS' ? n.firstElementChild : n;
const kids = n => n.tagName === 'DETAILS' ? [...n.children].slice(1) : [];
function look(n, above) {
  const text = n.text ??= own(n).textContent.toLowerCase();
  const states = (n.dataset.s || '').split(' ');
  const fits = (!wanted.size || states.some(s => wanted.has(s)));
  const found = text.includes(words);
  let any = false;
  for (const kid of kids(n)) any = look(kid, above || (words && found)) || any;
  n.hidden = !(any || (fits && (found || above)));
  if (n.tagName === 'DETAILS') n.open = words || wanted.size ? any : n.first;
  return !n.hidden;
}
function refresh() {
  let any = false;
  for (const list of document.querySelectorAll('.list, .tree')) {
    let some = false;
    for (const n of list.children) if (n.classList.contains('n')) some = look(n, false) || some;
    list.hidden = !some;
    if (list.tagName === 'DETAILS') list.open = words || wanted.size ? some : list.first;
    any = any || some;
  }
  none.hidden = any;
}
for (const n of document.querySelectorAll('details')) n.first = n.open;
let timer;
input.oninput = () => { clearTimeout(timer); timer = setTimeout(() => { words = input.value.toLowerCase(); refresh(); }, 120); };
for (const b of buttons) b.onclick = () => {
  const on = b.getAttribute('aria-pressed') !== 'true';
  b.setAttribute('aria-pressed', on);
  if (on) wanted.add(b.dataset.s); else wanted.delete(b.dataset.s);
  refresh();
};
function fold(open) { for (const n of document.querySelectorAll('.tree details')) n.open = n.first = open; }
document.getElementById('open').onclick = () => fold(true);
document.getElementById('close').onclick = () => fold(false);
)";
