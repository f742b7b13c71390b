// Tells of each frame whether its page fits its width, and else what lies beyond its right edge or does not fit its box.
addEventListener("load", () => {
  let told = "";
  const frames = [...document.querySelectorAll("iframe")];
  for (const frame of frames) {
    const page = frame.contentDocument;
    // What only a screen reader reads is cut away on purpose.
    const isSeen = part => {
      for (let at = part; at instanceof page.defaultView.Element; at = at.parentElement)
        if (getComputedStyle(at).clipPath !== "none") return false;
      return true;
    };
    const sticksOut = part => isSeen(part) && (
      part.getBoundingClientRect().right > frame.clientWidth + 1 ||
      (getComputedStyle(part).display !== "inline" && part.scrollWidth > part.clientWidth + 1));
    // A cell shows its lines one below the other and breaks none, but where it says that it may.
    const breaks = cell => {
      const range = page.createRange();
      range.selectNodeContents(cell);
      const tops = new Set([...range.getClientRects()].filter(box => box.width > 0).map(box => Math.round(box.top)));
      return getComputedStyle(cell).display === "table-cell" && !cell.classList.contains("w") && !cell.querySelector(".hidden, .none") &&
        tops.size > cell.querySelectorAll("br").length + 1;
    };
    const parts = [...page.querySelectorAll("body, body *:not(caption, col, colgroup, tbody, tr)")];
    const names = parts.filter(part => sticksOut(part) || breaks(part)).map(part => `${part.localName} "${part.textContent.trim().slice(0, 30)}"`);
    const fits = names.length === 0 && page.documentElement.scrollWidth <= page.documentElement.clientWidth;
    told += `${frame.title}: ${fits ? "fits" : "too wide, " + names.slice(0, 5).join(", ")}\n`;
  }
  frames.forEach(frame => frame.remove());
  const answer = document.createElement("pre");
  answer.id = "told";
  answer.textContent = told;
  document.body.append(answer);
});
