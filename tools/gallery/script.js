// A gallery's ways to compare, filter, enlarge and copy. Without it the page shows all pictures.
'use strict';
(() => {
  const byId = (id) => document.getElementById(id);
  const all = (selector, within = document) => [...within.querySelectorAll(selector)];
  const cards = all('.card[data-name]');
  const large = byId('large');
  const told = byId('told');

  // Comparing: every stage shows the original up to a share of its width.
  const rangeOf = (stage) => (stage.closest('dialog') || stage).querySelector('.wipe');
  const wipe = (stage, share) => {
    stage.style.setProperty('--at', share + '%');
    stage.classList.toggle('cut', share > 0 && share < 100);
    rangeOf(stage).value = share;
  };
  const stages = all('.stage').filter((stage) => stage.querySelector('.before'));
  let dragged = false;
  for (const stage of stages) {
    rangeOf(stage).addEventListener('input', (event) => wipe(stage, Number(event.target.value)));
    let start = null;
    stage.addEventListener('pointerdown', (event) => {
      start = event.button === 0 ? event.clientX : null;
      dragged = false;
    });
    stage.addEventListener('pointermove', (event) => {
      if (start === null || (!dragged && Math.abs(event.clientX - start) < 6)) return;
      if (!dragged) stage.setPointerCapture(event.pointerId);
      dragged = true;
      const box = stage.getBoundingClientRect();
      wipe(stage, Math.round(Math.min(1, Math.max(0, (event.clientX - box.left) / box.width)) * 1000) / 10);
    });
    for (const end of ['pointerup', 'pointercancel']) stage.addEventListener(end, () => { start = null; });
    stage.addEventListener('dragstart', (event) => event.preventDefault());
  }
  byId('wipe-all').addEventListener('input', (event) => {
    for (const stage of stages) wipe(stage, Number(event.target.value));
  });

  // One picture large, with its neighbours at hand.
  const stageLarge = large.querySelector('.stage');
  let shown = 0;
  const show = (index) => {
    const seen = cards.filter((card) => card.offsetParent !== null || card === cards[index]);
    const card = cards[index];
    const picture = card.querySelector('img');
    shown = index;
    byId('large-name').textContent = card.dataset.effect + ', ' + card.dataset.name;
    byId('large-picture').src = picture.getAttribute('src');
    byId('large-picture').alt = picture.alt;
    byId('previous').disabled = seen[0] === card;
    byId('next').disabled = seen[seen.length - 1] === card;
  };
  const step = (by) => {
    for (let i = shown + by; i >= 0 && i < cards.length; i += by) {
      if (cards[i].offsetParent !== null) return show(i);
    }
  };
  cards.forEach((card, index) => {
    card.querySelector('.stage a').addEventListener('click', (event) => {
      if (event.ctrlKey || event.metaKey || event.shiftKey) return;
      event.preventDefault();
      if (dragged && event.detail > 0) return;
      wipe(stageLarge, 0);
      show(index);
      large.showModal();
    });
  });
  byId('previous').addEventListener('click', () => step(-1));
  byId('next').addEventListener('click', () => step(1));
  byId('close').addEventListener('click', () => large.close());
  large.addEventListener('keydown', (event) => {
    if (event.target.type === 'range') return;
    if (event.key === 'ArrowLeft') step(-1);
    if (event.key === 'ArrowRight') step(1);
  });
  large.addEventListener('close', () => cards[shown].querySelector('.stage a').focus());

  // Filtering: an effect's name brings all its pictures, a preset's name that picture.
  byId('find').addEventListener('input', (event) => {
    const wanted = event.target.value.trim().toLowerCase();
    const has = (element) => element.dataset.name.toLowerCase().includes(wanted);
    let count = 0;
    for (const section of all('main section')) {
      const whole = has(section);
      let any = false;
      for (const card of all('.card[data-name]', section)) {
        card.hidden = !whole && !has(card);
        any = any || !card.hidden;
        if (!card.hidden) ++count;
      }
      section.hidden = !any;
    }
    byId('nothing').hidden = count > 0;
    told.textContent = count === 1 ? '1 picture' : count + ' pictures';
  });

  byId('open-all').addEventListener('click', (event) => {
    const open = event.currentTarget.getAttribute('aria-pressed') !== 'true';
    event.currentTarget.setAttribute('aria-pressed', String(open));
    for (const details of all('.card details')) details.open = open;
  });

  // Copying: pages read from a folder or a plain server may have no clipboard of the newer kind.
  const copyBySelection = (code) => {
    code.closest('details').open = true;
    const selection = getSelection();
    selection.selectAllChildren(code);
    const done = document.execCommand('copy');
    if (done) selection.removeAllRanges();
    return done;
  };
  for (const button of all('.copy')) {
    button.addEventListener('click', async () => {
      const code = button.parentElement.querySelector('code');
      let done = false;
      try {
        await navigator.clipboard.writeText(code.textContent.trim());
        done = true;
      } catch {
        done = copyBySelection(code);
      }
      button.textContent = done ? 'Copied' : 'Selected';
      told.textContent = done ? 'Command copied' : 'Command selected';
      setTimeout(() => { button.textContent = 'Copy command'; }, 1500);
    });
  }
})();
