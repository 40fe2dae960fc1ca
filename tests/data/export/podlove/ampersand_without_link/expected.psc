<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="01:02:05.500" title="Intro &amp; Outro" />
</psc:chapters>
