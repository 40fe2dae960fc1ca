<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="00:00:01.000" title="One" />
<psc:chapter start="00:00:03.000" title="Three" href="https://three.example/?a=1&amp;b=2"/>
</psc:chapters>
